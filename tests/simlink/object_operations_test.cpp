#include <gtest/gtest.h>

#include <mutex>

#include "simlink/object_requests.h"
#include "simlink/sim_outbox.h"
#include "engine/position_exchange.h"
#include "engine/engine_tables.h"
#include "foundation/run_flags.h"
#include "simlink/sim_events.h"
#include "simlink/sim_queues.h"
#include "simlink/sim_session.h"
#include "simlink/user_aircraft.h"
#include "foundation/parameters.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

void queuePosition(std::uint32_t objectid, double lat) {
  gPositionOut.engine().push_back(PositionOut{lat, 8.58, 0, 0, 1.0, 3000, 0, 250, objectid});
  gPositionOut.handOver();
}

TEST_F(SimLinkTest, OwnAircraftAreRecognisedHeldStillMovedAndRemoved) {
  connect();
  const std::uint32_t live = createOwn(4000001, "DLH401");
  auto notices = takeNotices();
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_TRUE(notices[0].kind == 0 && notices[0].objectid == live && notices[0].id == 4000001u);
  EXPECT_NEAR(notices[0].a, 3000 - 364, 1.0) << "height above ground";
  EXPECT_TRUE(gPendingCreates.empty() && gAddedObjects.empty());

  queuePosition(live, 50.05);
  frames();
  const auto object = standin::object(live);
  EXPECT_FALSE(object->aiControlled) << "released at once";
  EXPECT_TRUE(object->freezeLatLon && object->freezeAltitude && object->freezeAttitude);

  const std::uint32_t parked = createOwn(17, "STATIC17", "Boeing 737-800 Ryanair", 364);
  lf_requestStaticData(parked);
  settle();
  notices = takeNotices();
  ASSERT_EQ(notices.size(), 2u);
  EXPECT_EQ(notices[0].kind, 1u) << "a running number is a static aircraft";
  EXPECT_EQ(notices[1].kind, 4u);
  EXPECT_GT(notices[1].a, 1.0) << "Static CG to Ground of a B738";

  simQueueRemove(live);
  frames(2);
  notices = takeNotices();
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_TRUE(notices[0].kind == 2 && notices[0].objectid == live);
}

TEST_F(SimLinkTest, ACreatedHelicopterIsSeenToAppearAndToGo) {
  gv_rangeMeters = 500 * 1852;  // more than the simulator takes: the request asks for its limit
  connect();
  const std::uint32_t id = createOwn(4000002, "CHX22", "Airbus H145 Christoph", 1500);
  ASSERT_NE(id, 0u);
  auto notices = takeNotices();
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_TRUE(notices[0].kind == kLiveCreated && notices[0].objectid == id && notices[0].id == 4000002u);
  EXPECT_TRUE(gPendingCreates.empty() && gAddedObjects.empty()) << "it has left adding2sim";
  simQueueRemove(id);
  frames(2);
  notices = takeNotices();
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_TRUE(notices[0].kind == kObjectRemoved && notices[0].objectid == id);
  EXPECT_EQ(log.text().find("SIMCONNECT_EXCEPTION"), std::string::npos) << log.text();
}

TEST_F(SimLinkTest, ForeignAircraftAreLoggedAndLeftAlone) {
  connect();
  const DWORD cessna = standin::addForeignAircraft("Cessna 152 Asobo", "N123AB", 50.04, 8.57, 2000.0);
  const DWORD asobo1 = standin::addForeignAircraft("Asobo Traffic", "AS-GEN", 50.04, 8.56, 1500.0);
  const DWORD asobo2 = standin::addForeignAircraft("Asobo Traffic", "AS-GEN", 50.03, 8.56, 1500.0);
  const DWORD high = standin::addForeignAircraft("Asobo Traffic", "EWG1", 50.03, 8.55, 9000.0);
  frames();
  lf_requestAircraftInRange();
  settle();
  const std::string text = log.text();
  EXPECT_NE(text.find(fmt::format("just spawned, but not by Orvane, oid: {}, callsign 'N123AB', altaboveGnd:1636 ft, "
                                  "onground:0, gnd_alt:364 ft\n", cessna)),
            std::string::npos) << text;
  EXPECT_NE(text.find(fmt::format("Spawned by Asobo, oid: {}, callsign AS-GEN", asobo1)), std::string::npos);
  EXPECT_EQ(text.find(fmt::format("Spawned by Asobo, oid: {}", asobo2)), std::string::npos) << "once per run";
  EXPECT_TRUE(takeNotices().empty());
  for (DWORD id : {cessna, asobo1, asobo2, high}) EXPECT_TRUE(standin::callsFor(id).empty()) << id;

  // Seen again they are established: ground data of those below 2500 ft.
  lf_requestAircraftInRange();
  settle();
  const auto notices = takeNotices();
  ASSERT_EQ(notices.size(), 3u);
  for (const SimNotice& n : notices) EXPECT_TRUE(n.kind == 3u && n.objectid != high && n.a == 364.0);
}

TEST_F(SimLinkTest, ACreationTheSimulatorRefusesReachesTheEngineAsKindSix) {
  connect();
  const std::uint32_t live = createOwn(4000001, "DLH401");
  takeNotices();
  // Exception 22 about another call is no refused creation of ours.
  standin::failCalls("SimConnect_TransmitClientEvent", 1, SIMCONNECT_EXCEPTION_CREATE_OBJECT_FAILED);
  simNavLights(live, true);
  frames();
  EXPECT_TRUE(takeNotices().empty());

  EXPECT_EQ(createOwn(4000002, "BAW12", "Airbus A380 Unknown Livery"), 0u);
  const auto notices = takeNotices();
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_TRUE(notices[0].kind == 6 && notices[0].id == 4000002u);
  EXPECT_TRUE(gPendingCreates.empty());
}

TEST_F(SimLinkTest, ObjectsAtOrBelowTheUserAreNeverMovedReleasedOrRemoved) {
  connect(scenarioJson(R"("firstObjectId": 11)", R"("objectId": 10, "latitude": 50.0379, "longitude": 8.5622)"));
  EXPECT_EQ(gv_userObjectId.load(), 2u) << "until the first position block";
  lf_requestUserPosition();
  settle();
  ASSERT_EQ(gv_userObjectId.load(), 10u);
  standin::clearCallLog();
  for (std::uint32_t id : {10u, 5u}) {
    queuePosition(id, 51.0);
    AcRecord ac;
    ac.objectid = id;
    gf_setFlaps(ac, 1);
    simSetLevers(id, 0, 50, 50);
    simQueueRemove(id);
  }
  frames(2);
  EXPECT_TRUE(standin::calls().empty()) << standin::calls().front().call;
  EXPECT_NE(log.text().find("SimConnect call to remove ac with objectid a\n"), std::string::npos);
}

TEST_F(SimLinkTest, FlapsEventsAreBracketedByReleaseCallsAndSentOnlyOnAChange) {
  connect();
  AcRecord ac;
  ac.objectid = createOwn(4000001, "DLH401");
  ac.acClass = kLarge;
  frames();
  const std::size_t before = standin::callsFor(ac.objectid).size();
  gf_setFlaps(ac, 2);
  gf_setFlaps(ac, 2);
  gf_setGear(ac, false);
  gf_setFlaps(ac, 4);
  frames();
  std::vector<std::string> seen;
  const auto calls = standin::callsFor(ac.objectid);
  for (std::size_t i = before; i < calls.size(); ++i) seen.push_back(calls[i].call.substr(11) + " " + calls[i].detail);
  EXPECT_EQ(seen, (std::vector<std::string>{"AIReleaseControl ", "TransmitClientEvent FLAPS_SET 10240",
                                            "AIReleaseControl ", "TransmitClientEvent GEAR_SET 0", "AIReleaseControl ",
                                            "TransmitClientEvent FLAPS_SET 0", "AIReleaseControl "}));
  gf_setFlaps(ac, 7);
  EXPECT_EQ(ac.flapsIdx, 7) << "taken all the same";
  EXPECT_NE(log.text().find("==> gf_setFlaps: invalid flaps index\n"), std::string::npos);
  ac.acClass = kRotorcraft;
  gf_setFlaps(ac, 1);
  for (int index : {3, 3, 5}) gf_setThrottle(ac, index);
  const std::vector<EventOut> events = gEventOut.takeAll();
  ASSERT_EQ(events.size(), 1u) << "no flaps on a rotorcraft; a throttle index once, and only below 5";
  EXPECT_EQ(events[0].value, kThrottleValues[3]);
}

TEST_F(SimLinkTest, AfterAFailedRequestEveryQueueIsEmptiedAtEachFrameAndNothingIsSent) {
  connect();
  const std::uint32_t live = createOwn(4000001, "DLH401");
  standin::failCalls("SimConnect_AIRemoveObject");
  simQueueRemove(live);
  frames();
  EXPECT_EQ(gv_exitReason.load(), ExitReason::SimConnectError);
  EXPECT_EQ(gv_restartSeconds.load(), 9);
  EXPECT_NE(log.text().find(fmt::format("!SimConnect call to remove AI ac from sim failed, id {:x}?\n", live)),
            std::string::npos);
  EXPECT_NE(log.text().find("SimConnect request error\n"), std::string::npos);

  standin::clearCallLog();
  for (int frame = 0; frame < 3; ++frame) {
    queuePosition(live, 50.1);
    simToggleAllLights(live);
    simQueueCreate(AddRequest{50.04, 8.57, 2000, 0, 0, 250, 0, 0, "DLH402", "Airbus A320 Lufthansa", 4000002});
    simQueueRemove(live);
    frames();
    EXPECT_TRUE(gPositionOut.handedOver() == 0 && gEventOut.empty() && gCreateOut.empty() && gRemoveOut.empty());
  }
  lf_requestUserPosition();
  lf_requestAircraftInRange();
  lf_requestStaticData(live);
  settle();
  EXPECT_TRUE(standin::calls().empty()) << standin::calls().front().call;
}

}  // namespace
}  // namespace orv::test
