// The engine's life cycle end to end: the engine step on this thread, the real SimClient
// thread and the stand-in simulator, one frame after each tick. Records are put into the
// tables as spawning would.
#include <gtest/gtest.h>

#include "engine/engine_tick.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/new_aircraft.h"
#include "refdata/code_tables.h"
#include "simlink/create_failures.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

const std::string kKnownTitle = "Airbus A320 Lufthansa";
const std::string kUnknownTitle = "Airbus A320 Nowhere Air";

class EngineLifeCycle : public SimLinkTest {
 protected:
  void SetUp() override {
    SimLinkTest::SetUp();
    gv_tick = 1;
  }

  // A live aircraft that spawning has chosen a title for, handed to the add stack.
  void spawn(std::uint32_t hexid, const std::string& cs, const std::string& title = kKnownTitle) {
    TrafficMsg m;
    m.hexid = hexid;
    m.ident.cs = cs;
    m.ident.code.acType = modelIndex("A320");
    m.sample.lat = 50.05;
    m.sample.lon = 8.58;
    m.sample.alt = 3000;
    m.sample.gs = 200;
    m.sample.track = 250;
    m.sample.airborne = 1;
    LiveAc ac = gf_makeLiveAc(std::move(m), kLarge, 0.01);
    ac.lat = 50.05;
    ac.lon = 8.58;
    ac.alt = 3000;
    ac.title = title;
    ac.simState = kAdding2Sim;
    gf_addLiveAc(std::move(ac));
    gAddStack.push_back(hexid);
  }
  void ticks(int n) {
    for (int i = 0; i < n; ++i) {
      lf_handleAddingStack();
      frames(1);
    }
  }
  const LiveAc* record(std::uint32_t hexid) {
    const int i = gf_findLiveAc(hexid);
    return i < 0 ? nullptr : &gLiveAc[static_cast<std::size_t>(i)];
  }
};

TEST_F(EngineLifeCycle, CreatedSettledLitMovedAndRemoved) {
  connect();
  spawn(60001, "DLH100");
  ticks(120);
  ASSERT_NE(record(60001), nullptr);
  const std::uint32_t id = record(60001)->objectid;
  ASSERT_GT(id, standin::userObjectId()) << "created at the 50th tick and recognised by its callsign";
  EXPECT_EQ(record(60001)->simState, kAdding2Sim);
  EXPECT_EQ(standin::object(id)->positionWrites, 0u) << "no position while it settles";

  ticks(200);
  ASSERT_EQ(record(60001)->simState, kActive);
  std::vector<std::string> lights;
  for (const auto& e : standin::eventsFor(id))
    if (e.event.find("LIGHTS") != std::string::npos || e.event == "STROBES_SET" || e.event == "ENGINE_AUTO_START")
      lights.push_back(fmt::format("{} {}", e.event, e.data));
  // The lights of its situation in the air, then those of its first leg below 10000 ft: all seven.
  EXPECT_EQ(lights, (std::vector<std::string>{"ALL_LIGHTS_TOGGLE 0", "ALL_LIGHTS_TOGGLE 0", "ENGINE_AUTO_START 0",
                                              "NAV_LIGHTS_SET 1", "BEACON_LIGHTS_SET 1", "LANDING_LIGHTS_SET 1",
                                              "TAXI_LIGHTS_SET 0", "STROBES_SET 1", "LOGO_LIGHTS_SET 1",
                                              "CABIN_LIGHTS_SET 1", "NAV_LIGHTS_SET 1", "BEACON_LIGHTS_SET 1",
                                              "LANDING_LIGHTS_SET 1", "TAXI_LIGHTS_SET 1", "STROBES_SET 1",
                                              "LOGO_LIGHTS_SET 1", "CABIN_LIGHTS_SET 1"}));
  const auto writes = standin::object(id)->positionWrites;
  ticks(10);
  EXPECT_EQ(standin::object(id)->positionWrites, writes + 10) << "a position every frame";

  removeAircraftFromSim(gLiveAc[static_cast<std::size_t>(gf_findLiveAc(60001))]);
  EXPECT_EQ(record(60001)->simState, kRemovingFromSim);
  ticks(12);  // handed over at the next tenth tick, gone at the frame after
  EXPECT_FALSE(standin::object(id));
  EXPECT_EQ(record(60001), nullptr) << "erased when the simulator reports the object gone";
}

TEST_F(EngineLifeCycle, TheSimulatorCreatesTheAircraftInTheAttitudeOfItsRecord) {
  connect();
  spawn(60004, "DLH104");
  LiveAc& ac = gLiveAc[static_cast<std::size_t>(gf_findLiveAc(60004))];
  // The engine keeps radians; the creation block takes degrees.
  ac.pitch = -0.05;
  ac.bank = 0.2;
  ac.heading = 4.5;
  ticks(60);
  const auto o = standin::objectByAtcId("DLH104");
  ASSERT_TRUE(o);
  EXPECT_NEAR(o->pitchRad, -0.05, 1e-12);
  EXPECT_NEAR(o->bankRad, 0.2, 1e-12);
  EXPECT_NEAR(o->headingRad, 4.5, 1e-12);
  EXPECT_DOUBLE_EQ(o->latitude, 50.05);
  EXPECT_DOUBLE_EQ(o->altitudeFt, 3000);
}

TEST_F(EngineLifeCycle, ARefusedTitleErasesTheRecordAndIsRemembered) {
  connect();
  spawn(60004, "DLH400", kUnknownTitle);
  ticks(60);
  EXPECT_EQ(record(60004), nullptr);
  EXPECT_EQ(gFailedTitles.count(kUnknownTitle), 1u);
}

}  // namespace
}  // namespace orv::test
