// The engine's life cycle as the simulator link turns it into events, creations and removals:
// the engine step with the simulator link's port bound, without the client thread.
#include <gtest/gtest.h>

#include "simlink/sim_queues.h"
#include "simlink/sim_outbox.h"
#include "engine/sim_notice_queue.h"
#include "engine/position_exchange.h"
#include "engine/engine_tick.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/new_aircraft.h"
#include "engine/sim_notices.h"
#include "refdata/code_tables.h"
#include "test_support.h"

namespace orv {
namespace {

constexpr double kDeg = 1.0 / 57.29577951308232;

// The run state's reset binds the simulator link's port and empties the tables and queues.
class LifeCycle : public testing::Test {
 protected:
  void SetUp() override { gv_tick = 1; }

  // A live aircraft that spawning has just asked the simulator for.
  LiveAc& adding(std::uint32_t hexid, const char* cs, bool airborne = true) {
    TrafficMsg m;
    m.hexid = hexid;
    m.ident.cs = cs;
    m.ident.code.acType = modelIndex("A320");
    m.sample.airborne = airborne ? 1 : 0;
    m.sample.alt = airborne ? 5000 : 0;
    m.sample.tick = 0;
    LiveAc& ac = gLiveAc[gf_addLiveAc(gf_makeLiveAc(std::move(m), kLarge, 0.01))];
    ac.simState = kAdding2Sim;
    ac.alt = airborne ? 5000 : 0;
    AddRequest request;
    request.callsign = cs;
    request.hexid = hexid;
    gLiveAddQueue.push_back(request);
    return ac;
  }
  void notice(SimNotice n) {
    gSimNotices.post(n);
  }
  void steps(int n) {
    for (int i = 0; i < n; ++i) lf_handleAddingStack();
  }
  std::vector<EventOut> events() { return gEventOut.takeAll(); }
};

TEST_F(LifeCycle, RemovalWhileTheRequestStillWaitsSendsNothing) {
  adding(50001, "DLH1");
  removeAircraftFromSim(gLiveAc[0]);
  EXPECT_TRUE(gLiveAddQueue.empty());
  EXPECT_EQ(gLiveAc[0].cancelled, 1);
  steps(1);
  EXPECT_TRUE(gLiveAc.empty()) << "a cancelled record leaves at the end of the step";
  EXPECT_TRUE(gRemoveQueue.empty());
}

TEST_F(LifeCycle, ACreatedObjectSettlesThenShowsTheLightsOfItsSituation) {
  adding(50002, "DLH2", true);
  gLiveAddQueue.clear();  // handed to the simulator
  notice({.objectid = 7, .id = 50002, .kind = kLiveCreated, .a = 4200});
  steps(1);
  EXPECT_EQ(gLiveAc[0].objectid, 7u);
  EXPECT_DOUBLE_EQ(gLiveAc[0].agl, 4200);
  steps(198);
  EXPECT_EQ(gLiveAc[0].simState, kAdding2Sim) << "no position before 200 ticks";
  std::vector<EventOut> seen = events();
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].eventId, 213u) << "ALL_LIGHTS_TOGGLE at 50 and at 100";
  steps(1);
  EXPECT_EQ(gLiveAc[0].simState, kActive);
  seen = events();
  // Engines, spoilers off, then NAV, BEACON, LANDING, TAXI, STROBES, LOGO, CABIN: in the air
  // at 5000 ft; the activation touches no lever in the air. The first leg, planned in the same
  // step below 10000 ft, lights all seven, and 4200 ft above ground raises gear and flaps.
  std::vector<std::pair<std::uint32_t, std::uint32_t>> got;
  for (const EventOut& e : seen) got.emplace_back(e.eventId, e.value);
  EXPECT_EQ(got, (std::vector<std::pair<std::uint32_t, std::uint32_t>>{
                     {220, 0}, {218, 0}, {207, 1}, {206, 1}, {210, 1}, {208, 0}, {209, 1}, {212, 1}, {211, 1},
                     {207, 1}, {206, 1}, {210, 1}, {208, 1}, {209, 1}, {212, 1}, {211, 1}, {219, 0}, {217, 0}}));
  steps(1);
  std::vector<PositionOut> sent;
  gPositionOut.take(sent);
  ASSERT_EQ(sent.size(), 1u) << "an active aircraft sends its position every step";
  EXPECT_EQ(sent[0].objectid, 7u);
}

TEST_F(LifeCycle, OnTheGroundTheTaxiLightFollowsTheFlightState) {
  LiveAc& ac = adding(50003, "DLH3", false);
  ac.flightState = kTaxi;
  gLiveAddQueue.clear();
  notice({.objectid = 8, .id = 50003, .kind = kLiveCreated, .a = 0});
  steps(200);
  EXPECT_EQ(gLiveAc[0].onGround, 1);
  std::vector<std::pair<std::uint32_t, std::uint32_t>> got;
  for (const EventOut& e : events())
    if (e.eventId != 213) got.emplace_back(e.eventId, e.value);
  EXPECT_EQ(got, (std::vector<std::pair<std::uint32_t, std::uint32_t>>{
                     {219, 1},  // gear down as the object appears on the ground
                     {220, 0}, {218, 0}, {207, 1}, {206, 1}, {210, 0}, {208, 1}, {209, 0}, {212, 1}, {211, 1},
                     {222, 0}, {217, 3072}}));  // idle throttle, taxi flaps
  EXPECT_EQ(gLiveAc[0].throttleIdx, 0);
  EXPECT_EQ(gLiveAc[0].flapsIdx, 1);
}

TEST_F(LifeCycle, RemovalAfterTheRequestLeftWaitsForTheObjectToExist) {
  gv_tick = 5;  // the object exists at tick 204: its removal waits for tick 210
  adding(50004, "DLH4");
  gLiveAddQueue.clear();
  removeAircraftFromSim(gLiveAc[0]);
  EXPECT_EQ(gLiveAc[0].removeWhenCreated, 1);
  removeAircraftFromSim(gLiveAc[0]);  // a second removal does nothing more
  notice({.objectid = 9, .id = 50004, .kind = kLiveCreated, .a = 3000});
  steps(199);
  EXPECT_TRUE(gRemoveQueue.empty());
  steps(1);
  EXPECT_EQ(gLiveAc[0].simState, kRemovingFromSim);
  ASSERT_EQ(gRemoveQueue.size(), 1u);
  EXPECT_EQ(gRemoveQueue.front(), 9u);
  steps(10);
  EXPECT_TRUE(gRemoveQueue.empty()) << "handed to the client at the next tenth tick";
  notice({.objectid = 9, .kind = kObjectRemoved});
  steps(1);
  EXPECT_TRUE(gLiveAc.empty());
}

TEST_F(LifeCycle, RespawnRefusalAndStaticData) {
  LiveAc& respawn = adding(50005, "DLH5");
  respawn.simState = kLiveryRespawn;
  respawn.objectid = 11;
  respawn.throttleIdx = 0;
  adding(50006, "DLH6");
  lf_onObjectRemoved(11);
  EXPECT_EQ(gLiveAc[0].simState, kBuffer) << "back to the buffer to be spawned anew";
  EXPECT_EQ(gLiveAc[0].objectid, 0u);
  EXPECT_EQ(gLiveAc[0].throttleIdx, 5);

  lf_onCreateFailed(50006);
  ASSERT_EQ(gLiveAc.size(), 1u);
  EXPECT_EQ(gLiveAc[0].hexid, 50005u);

  AcRecord& ac = gLiveAc[0];
  ac.cgHeight = 12;
  lf_onStaticData(ac, 40, 3 * kDeg);
  EXPECT_DOUBLE_EQ(ac.cgHeight, 12) << "40 ft is no CG height";
  EXPECT_DOUBLE_EQ(ac.staticPitch, 0.7 * kDeg);
  lf_onStaticData(ac, 35, -0.5 * kDeg);
  EXPECT_DOUBLE_EQ(ac.cgHeight, 35);
  EXPECT_DOUBLE_EQ(ac.staticPitch, -0.5 * kDeg);
  lf_onStaticData(ac, 0.5, -1 * kDeg);
  EXPECT_DOUBLE_EQ(ac.cgHeight, 35);
  EXPECT_DOUBLE_EQ(ac.staticPitch, 0.7 * kDeg);
}

TEST_F(LifeCycle, ObjectsOfTheUserAndTheSimulatorAreNeverTaken) {
  adding(50007, "DLH7");
  gLiveAddQueue.clear();
  notice({.objectid = 2, .id = 50007, .kind = kLiveCreated});
  steps(1);
  EXPECT_EQ(gLiveAc[0].objectid, 0u);
  EXPECT_TRUE(gNewObjects.empty());
  // A created object whose record has gone meanwhile is removed again.
  notice({.objectid = 12, .id = 59999, .kind = kLiveCreated});
  steps(1);
  ASSERT_EQ(gRemoveQueue.size(), 1u);
  EXPECT_EQ(gRemoveQueue.front(), 12u);
}

}  // namespace
}  // namespace orv
