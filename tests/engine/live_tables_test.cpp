#include <gtest/gtest.h>

#include <set>

#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/new_aircraft.h"
#include "engine/object_id_list.h"
#include "engine/traffic_intake.h"
#include "engine/traffic_queue.h"
#include "foundation/parameters.h"
#include "foundation/sim_choice.h"
#include "refdata/code_tables.h"
#include "refdata/valid_codes.h"
#include "test_support.h"

namespace orv {
namespace {

TrafficMsg message(std::uint32_t hexid, std::string cs, std::string_view model = "A320", double timestamp = 100) {
  TrafficMsg m;
  m.hexid = hexid;
  m.ident.cs = std::move(cs);
  m.ident.code.acType = modelIndex(model);
  m.timestamp = timestamp;
  m.sample.lat = 50;
  m.sample.lon = 8;
  // Due 30 s after it is taken, as the feed stamps it; a sample due at once would let the
  // buffer drop a record with a single report before its second one arrives.
  m.sample.tick = gv_tick + 3000;
  return m;
}

TEST(LiveTables, NewRecordTakesItsClassValuesAndStartsInBuffer) {
  // The size of the random change is fixed, only its sign varies.
  const auto oneOf = [](double deg, double a, double b) {
    return std::fabs(deg - a) < 1e-9 ? 1 : std::fabs(deg - b) < 1e-9 ? 2 : 0;
  };
  std::set<int> rotate, climb;
  for (int i = 0; i < 64; ++i) {
    LiveAc ac = gf_makeLiveAc(message(20000, "DLH1"), kLarge, 0.01);
    rotate.insert(oneOf(ac.rotatePitch * 57.29577951308232, -6 * 1.025, -6 * 0.975));
    climb.insert(oneOf(ac.climbPitch * 57.29577951308232, -16.5 * 1.05, -16.5 * 0.95));
    if (i) continue;
    EXPECT_EQ(ac.simState, kBuffer);
    EXPECT_EQ(ac.flightState, kBirth);
    EXPECT_EQ(ac.cs1, "DLH1");
    EXPECT_EQ(ac.stream.size(), 1u);
    EXPECT_NEAR(ac.turnRate, 0.07 / 57.29577951308232, 1e-15) << "the class's degrees per tick, in radians";
  }
  EXPECT_EQ(rotate, (std::set<int>{1, 2}));
  EXPECT_EQ(climb, (std::set<int>{1, 2}));
  EXPECT_EQ(gf_simStateName(kLiveryRespawn), "liveryrespawn");
  EXPECT_EQ(gf_flightStateName(kPushedBack), "pushed_back");
  EXPECT_EQ(gf_acClassName(kRotorcraft), "Rotorcraft");
  EXPECT_EQ(gf_flightStateName(8), "?");
}

TEST(LiveTables, FlightStateChangeKeepsThePreviousState) {
  LiveAc ac = gf_makeLiveAc(message(20000, "DLH1"), kLight, 0.01);
  gf_setFlightState(ac, kTaxi);
  gf_setFlightState(ac, kTaxi);
  EXPECT_EQ(ac.prevFlightState, kBirth) << "setting the same state is no change";
  gf_setFlightState(ac, kTakeOff);
  EXPECT_EQ(ac.prevFlightState, kTaxi);
}

TEST(LiveTables, EraseByMovingTheLastAndStableCompaction) {
  for (std::uint32_t h : {10001u, 10002u, 10003u, 10004u, 10005u})
    gf_addLiveAc(gf_makeLiveAc(message(h, fmt::format("C{}", h)), kLight, 0.01));
  gf_eraseLiveAcAt(1);
  ASSERT_EQ(gLiveAc.size(), 4u);
  EXPECT_EQ(gLiveAc[1].hexid, 10005u) << "the last record takes the erased one's place";
  gf_eraseLiveAcAt(3);
  gf_eraseLiveAcAt(7);
  ASSERT_EQ(gLiveAc.size(), 3u);
  gLiveAc[0].erase = 1;
  gLiveAc[1].cancelled = 1;
  gf_addLiveAc(gf_makeLiveAc(message(10006, "C10006"), kLight, 0.01));
  gf_compactLiveAc();
  ASSERT_EQ(gLiveAc.size(), 2u);
  EXPECT_EQ(gLiveAc[0].hexid, 10003u);
  EXPECT_EQ(gLiveAc[1].hexid, 10006u) << "compaction keeps the order of the others";
  EXPECT_EQ(gf_findLiveAc(10006), 1);
  EXPECT_EQ(gf_findLiveAc(10001), -1);
}

TEST(LiveTables, TheEngineTakesTwoMessagesATickIntoBufferRecords) {
  for (const char* model : {"B77W", "A320", "A321"}) validModels.insert(model);
  gTrafficQueue.setEnabled(true);
  gTrafficQueue.post(message(30001, "BAW1", "B77W", 100));
  gTrafficQueue.post(message(30002, "AFR2", "A320", 100));
  // 16 s later: a standing aircraft on the ground is wanted again only after 15 s.
  gTrafficQueue.post(message(30001, "BAW1", "B77W", 116));
  gTrafficQueue.post(message(30003, "AFR2", "A320", 106));  // the same aircraft under another address
  gTrafficQueue.post(message(30004, "AFR2", "A321", 106));
  lf_handleAddingStack();
  EXPECT_EQ(gv_tick, 1);
  ASSERT_EQ(gLiveAc.size(), 2u);
  EXPECT_EQ(gLiveAc[0].cs, "BAW1");
  EXPECT_EQ(gLiveAc[0].simState, kBuffer);
  lf_handleAddingStack();
  EXPECT_EQ(gLiveAc.size(), 2u);
  EXPECT_EQ(gLiveAc[0].stream.size(), 2u) << "a known hexid gains a sample";
  EXPECT_DOUBLE_EQ(gLiveAc[0].lastTimestamp, 116);
  lf_handleAddingStack();
  ASSERT_EQ(gLiveAc.size(), 3u);
  EXPECT_EQ(gLiveAc[2].hexid, 30004u);
  gLiveAc[2].simState = kRemovingFromSim;
  gTrafficQueue.post(message(30004, "AFR2", "A321", 120));
  lf_handleAddingStack();
  EXPECT_EQ(gLiveAc[2].stream.size(), 1u) << "an aircraft on its way out takes no samples";
  lf_clearValidCodes();
}

TEST(LiveTables, ObjectIdListShowsActiveAircraftInTableOrder) {
  test::TempDir work;
  const auto previous = std::filesystem::current_path();
  std::filesystem::current_path(work.path());
  std::filesystem::create_directories("output/info");
  for (std::uint32_t h : {40001u, 40002u, 40003u}) gf_addLiveAc(gf_makeLiveAc(message(h, fmt::format("CS{}", h)), kLight, 0.01));
  gLiveAc[0].simState = kActive;
  gLiveAc[0].objectid = 255;
  gLiveAc[0].reg = "D-AIZA";
  gLiveAc[0].code.airline = airlineIndex("DLH");
  gLiveAc[0].onGround = 1;
  gLiveAc[0].flightState = kParked;
  gLiveAc[2].simState = kActive;
  gLiveAc[2].objectid = 4096;
  gv_isMsfs2020 = true;
  gf_writeObjectIdList();
  EXPECT_EQ(test::readFile(kObjectIdListPath), "255;CS40001;D-AIZA;DLH;A320;GND;PARKED\n4096;CS40003;;;A320;AIR;\n");
  gv_isMsfs2020 = false;
  gf_writeObjectIdList();
  EXPECT_EQ(test::readFile(kObjectIdListPath), "ff;CS40001;D-AIZA;DLH;A320;GND;PARKED\n1000;CS40003;;;A320;AIR;\n");
  gv_isMsfs2020 = true;
  std::filesystem::current_path(previous);
}

}  // namespace
}  // namespace orv
