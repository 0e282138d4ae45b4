// The seconds at which the run cycle clears stands: the sweep of static twins on multiples of 61
// that aren't multiples of 5, and the reserved stand kept free every 5 seconds.
#include <gtest/gtest.h>

#include "airportdata/stands.h"
#include "app/main_loop.h"
#include "engine/engine_tables.h"
#include "engine/reserved_stand.h"
#include "platform/window/headless_window.h"
#include "simlink/sim_run_state.h"
#include "ui/controls.h"

namespace orv {
namespace {

class StandSeconds : public testing::Test {
 protected:
  void SetUp() override {
    gf_setWindow(&window);
    lf_createControls();
    gv_simRunning = true;
    Stand s;
    s.id = "R1";
    s.number = 1;
    s.latitude = 52.3;
    s.longitude = 4.76;
    gStands = {s};
  }
  void TearDown() override {
    gStands.clear();
    gf_setWindow(nullptr);
  }
  void runTo(int second) {
    while (gv_seconds < second) {
      gv_secondTick = true;
      ASSERT_TRUE(lf_tick());
    }
  }
  // A live aircraft on the ground far from the user, and a static one with its registration.
  static void twins(const std::string& reg) {
    LiveAc ac;
    ac.cs = "KLM" + reg;
    ac.reg = reg;
    ac.hexid = 60000 + static_cast<std::uint32_t>(gLiveAc.size());
    ac.objectid = ac.hexid;
    ac.simState = kActive;
    ac.onGround = 1;
    ac.flightState = kTaxi;
    ac.lat = 52.3;
    ac.lon = 4.7;
    Sample here;  // standing, its leg running for long
    here.lat = ac.lat;
    here.lon = ac.lon;
    here.stopped = 1;
    here.tick = 100000000;
    ac.stream.push_back(here);
    ac.stream.push_back(here);
    gf_addLiveAc(std::move(ac));
    AcRecord p;
    p.cs = "ST" + reg;
    p.reg = reg;
    p.objectid = 900 + static_cast<std::uint32_t>(gParkedAc.size());
    p.simState = kActive;
    p.standLat = 52.31;
    p.standLon = 4.71;
    gParkedAc.push_back(p);
  }
  static bool staticRemoved(std::size_t i) { return gParkedAc.at(i).simState == kRemovingFromSim; }
  HeadlessWindow window;
};

TEST_F(StandSeconds, TheSweepRunsOnMultiplesOf61ThatAreNotMultiplesOf5) {
  twins("PH-BXA");
  runTo(60);
  EXPECT_FALSE(staticRemoved(0));
  runTo(61);
  EXPECT_TRUE(staticRemoved(0));

  runTo(300);
  twins("PH-BXB");
  runTo(305);  // 5 x 61
  EXPECT_FALSE(staticRemoved(1)) << "the five-second work has the second";
  runTo(365);
  EXPECT_FALSE(staticRemoved(1));
  runTo(366);
  EXPECT_TRUE(staticRemoved(1));
}

TEST_F(StandSeconds, TheReservedStandIsKeptFreeEveryFiveSecondsWhileThereIsOne) {
  for (int i = 0; i < 2; ++i) {
    AcRecord p;
    p.cs = "ST" + std::to_string(i);
    p.objectid = 900 + static_cast<std::uint32_t>(i);
    p.simState = kActive;
    p.sid = 1;
    gParkedAc.push_back(p);
  }
  runTo(5);
  EXPECT_FALSE(staticRemoved(0)) << "no stand reserved";
  gReservedStand = "R1";
  runTo(9);
  EXPECT_FALSE(staticRemoved(0));
  runTo(10);
  EXPECT_TRUE(staticRemoved(0));
  EXPECT_FALSE(staticRemoved(1));
  runTo(15);
  EXPECT_TRUE(staticRemoved(1));
}

}  // namespace
}  // namespace orv
