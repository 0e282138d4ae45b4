// Client events of the stand-in: what a session declares, and what each event does to an object.
#include "standin_fixture.h"
#include "test_support.h"

namespace orv::test {
namespace {

// The events as the program maps them, from id 206 on.
constexpr const char* kEvents[] = {
    "BEACON_LIGHTS_SET", "NAV_LIGHTS_SET", "TAXI_LIGHTS_SET", "STROBES_SET", "LANDING_LIGHTS_SET", "CABIN_LIGHTS_SET",
    "LOGO_LIGHTS_SET", "ALL_LIGHTS_TOGGLE", "FREEZE_LATITUDE_LONGITUDE_SET", "FREEZE_ALTITUDE_SET",
    "FREEZE_ATTITUDE_SET", "FLAPS_SET", "SPOILERS_SET", "GEAR_SET", "ENGINE_AUTO_START", "ENGINE_AUTO_SHUTDOWN",
    "THROTTLE_SET"};

class ClientEventsTest : public StandinTest {
 protected:
  HANDLE h = nullptr;
  DWORD id = 0;

  void SetUp() override {
    StandinTest::SetUp();
    h = startWith(R"({"acceptAnyTitle": true})");
    for (DWORD i = 0; i < std::size(kEvents); ++i) {
      SimConnect_MapClientEventToSimEvent(h, 206 + i, kEvents[i]);
      SimConnect_AddClientEventToNotificationGroup(h, 301, 206 + i, TRUE);
    }
    SimConnect_SetNotificationGroupPriority(h, 301, SIMCONNECT_GROUP_PRIORITY_HIGHEST);
    SimConnect_AICreateNonATCAircraft(h, "Any Title At All", "EVT1", at(50.04, 8.56, 0, true), 104);
    standin::advanceFrames(1);
    ASSERT_TRUE(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EXCEPTION).empty());
    id = standin::objectByAtcId("EVT1")->objectId;
  }

  void send(DWORD event, DWORD data) {
    EXPECT_EQ(SimConnect_TransmitClientEvent(h, id, event, data, 301, SIMCONNECT_EVENT_FLAG_DEFAULT), S_OK);
  }
};

TEST_F(ClientEventsTest, DeclarationsAreVisibleForChecking) {
  const auto info = standin::session("Orvane");
  ASSERT_TRUE(info);
  EXPECT_EQ(info->clientEvents.at(217), "FLAPS_SET");
  EXPECT_EQ(info->groups.at(301).size(), std::size(kEvents));
  EXPECT_EQ(info->groupPriorities.at(301), 1u);
  EXPECT_FALSE(standin::session("Nobody"));

  // A name the simulator lacks, an id mapped twice, an event never mapped: all refused.
  SimConnect_MapClientEventToSimEvent(h, 230, "FLAPS_SETT");
  SimConnect_MapClientEventToSimEvent(h, 217, "GEAR_SET");
  SimConnect_TransmitClientEvent(h, id, 231, 0, 301, 0);
  SimConnect_SetNotificationGroupPriority(h, 302, 1);
  EXPECT_EQ(exceptionsOf(dispatchAll(h)),
            (Exceptions{SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED, SIMCONNECT_EXCEPTION_EVENT_ID_DUPLICATE,
                        SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID, SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID}));
  EXPECT_EQ(standin::session("Orvane")->clientEvents.at(217), "FLAPS_SET");
}

TEST_F(ClientEventsTest, EventsChangeTheObjectAndAreRecordedInOrder) {
  send(207, 1);
  send(206, 1);
  send(210, 1);
  send(210, 0);
  EXPECT_EQ(standin::object(id)->lights, standin::kLightNav | standin::kLightBeacon);
  send(213, 0);
  EXPECT_EQ(standin::object(id)->lights, standin::kAllLights & ~(standin::kLightNav | standin::kLightBeacon));
  send(213, 0);
  EXPECT_EQ(standin::object(id)->lights, standin::kLightNav | standin::kLightBeacon);

  send(214, 1);
  send(215, 1);
  send(216, 1);
  send(219, 0);
  send(222, 8191);
  send(218, 16383);
  send(220, 0);
  auto o = standin::object(id);
  EXPECT_TRUE(o->freezeLatLon && o->freezeAltitude && o->freezeAttitude);
  EXPECT_FALSE(o->gearDown);
  EXPECT_NEAR(o->throttlePercent[0], 49.997, 1e-3);
  EXPECT_DOUBLE_EQ(o->throttlePercent[1], o->throttlePercent[0]);
  EXPECT_DOUBLE_EQ(o->spoilersPercent, 100.0);
  EXPECT_TRUE(o->enginesRunning);
  send(221, 0);
  EXPECT_FALSE(standin::object(id)->enginesRunning);

  const auto events = standin::eventsFor(id);
  ASSERT_EQ(events.size(), 14u);
  EXPECT_EQ(events[0].event, "NAV_LIGHTS_SET");
  EXPECT_EQ(events[8].event, "FREEZE_ATTITUDE_SET");
  EXPECT_EQ(events[10].data, 8191u);
  EXPECT_EQ(events[10].groupId, 301u);
  EXPECT_TRUE(standin::eventsFor(standin::userObjectId()).empty());
}

TEST_F(ClientEventsTest, FlapsHandTheAircraftBackToTheSimulatorsAi) {
  EXPECT_TRUE(standin::object(id)->aiControlled);
  ASSERT_EQ(SimConnect_AIReleaseControl(h, id, 103), S_OK);
  EXPECT_FALSE(standin::object(id)->aiControlled);
  send(217, 3072);
  EXPECT_TRUE(standin::object(id)->aiControlled);
  EXPECT_NEAR(standin::object(id)->flapsPercent, 18.75, 0.01);
  ASSERT_EQ(SimConnect_AIReleaseControl(h, id, 103), S_OK);
  EXPECT_FALSE(standin::object(id)->aiControlled);

  std::vector<std::string> sequence;
  for (const auto& c : standin::callsFor(id)) sequence.push_back(c.call);
  EXPECT_EQ(sequence, (std::vector<std::string>{"SimConnect_AICreateNonATCAircraft", "SimConnect_AIReleaseControl",
                                                "SimConnect_TransmitClientEvent", "SimConnect_AIReleaseControl"}));
  EXPECT_EQ(standin::callsFor(id)[2].detail, "FLAPS_SET 3072");
}

TEST_F(ClientEventsTest, FlightPlanMustExist) {
  TempDir dir;
  writeFile(dir / "4242.pln", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  ASSERT_EQ(SimConnect_AISetAircraftFlightPlan(h, id, (dir / "4242").string().c_str(), 110), S_OK);
  ASSERT_EQ(SimConnect_AISetAircraftFlightPlan(h, id, (dir / "missing.pln").string().c_str(), 110), S_OK);
  EXPECT_EQ(exceptionsOf(dispatchAll(h)), Exceptions{SIMCONNECT_EXCEPTION_LOAD_FLIGHTPLAN_FAILED});
  EXPECT_EQ(standin::object(id)->flightPlan, (dir / "4242").string());
}

}  // namespace
}  // namespace orv::test
