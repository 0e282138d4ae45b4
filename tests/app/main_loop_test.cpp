#include "app/main_loop.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "app/closing_down.h"
#include "feed/traffic_decoder.h"
#include "foundation/message_area.h"
#include "foundation/parameters.h"
#include "foundation/status_values.h"
#include "parking/parking_run_state.h"
#include "platform/window/headless_window.h"
#include "simlink/sim_run_state.h"
#include "ui/controls.h"
#include "ui/run_requests.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using ms = std::chrono::milliseconds;

// A clock that only moves when the loop sleeps or a tick spends time. A sleep may wake late.
class FakeClock : public LoopClock {
 public:
  time_point now() override { return now_; }
  void sleepUntil(time_point t) override {
    ++sleeps;
    now_ = t + oversleep;
    if (secondTickAtSleep == sleeps) gv_secondTick = true;
  }
  void spend(ms d) { now_ += d; }
  ms elapsed() const { return std::chrono::duration_cast<ms>(now_ - time_point{}); }

  ms oversleep{0};
  int sleeps = 0;
  int secondTickAtSleep = -1;

 private:
  time_point now_{};
};

// Runs `count` ticks; the n-th tick spends work[n]; returns the clock at each tick.
std::vector<std::int64_t> runTicks(FakeClock& clock, int count, std::vector<ms> work = {}) {
  std::vector<std::int64_t> at;
  lf_runSchedule(clock, [&] {
    at.push_back(clock.elapsed().count());
    gv_secondTick = false;  // taken by the tick, as lf_tick does
    if (at.size() <= work.size()) clock.spend(work[at.size() - 1]);
    return static_cast<int>(at.size()) < count;
  });
  return at;
}

TEST(MainLoopSchedule, TicksEveryTenMilliseconds) {
  FakeClock clock;
  EXPECT_EQ(runTicks(clock, 5), (std::vector<std::int64_t>{0, 10, 20, 30, 40}));
}

TEST(MainLoopSchedule, CatchesUpBackToBackWithinHundredMilliseconds) {
  FakeClock clock;
  // The third tick takes 50 ms: the ticks due meanwhile follow at once, then the schedule holds.
  EXPECT_EQ(runTicks(clock, 9, {0ms, 0ms, 50ms}), (std::vector<std::int64_t>{0, 10, 20, 70, 70, 70, 70, 70, 80}));
}

TEST(MainLoopSchedule, MoreThanHundredMillisecondsBehindRestartsFromNow) {
  FakeClock clock;
  EXPECT_EQ(runTicks(clock, 5, {0ms, 0ms, 150ms}), (std::vector<std::int64_t>{0, 10, 20, 180, 190}));
  FakeClock exact;
  // 100 ms behind is not yet more than 100 ms.
  EXPECT_EQ(runTicks(exact, 5, {0ms, 0ms, 100ms}), (std::vector<std::int64_t>{0, 10, 20, 120, 120}));
}

TEST(MainLoopSchedule, ASecondTickReadsTheClockAgain) {
  FakeClock late;
  late.oversleep = 4ms;
  // Late wake-ups don't shift the schedule...
  EXPECT_EQ(runTicks(late, 5), (std::vector<std::int64_t>{0, 14, 24, 34, 44}));
  FakeClock second;
  second.oversleep = 4ms;
  second.secondTickAtSleep = 2;
  // ...until the simulator's second arrives: from then on the ticks follow the clock.
  EXPECT_EQ(runTicks(second, 5), (std::vector<std::int64_t>{0, 14, 24, 38, 48}));
}

TEST(MainLoopSchedule, ATimeScaleRunsTheSameTicksInAShorterWallTime) {
  FakeClock wall;
  wall.spend(1000ms);  // the scaled clock counts from its own start, not from the wall's
  ScaledLoopClock scaled(wall, 10.0);
  std::vector<std::int64_t> scaledAt, wallAt;
  lf_runSchedule(scaled, [&] {
    scaledAt.push_back(std::chrono::duration_cast<ms>(scaled.now() - LoopClock::time_point{}).count());
    wallAt.push_back(wall.elapsed().count());
    gv_secondTick = false;
    return scaledAt.size() < 5;
  });
  // Every tick 10 ms of scaled time apart, 1 ms of wall time apart.
  EXPECT_EQ(wallAt, (std::vector<std::int64_t>{1000, 1001, 1002, 1003, 1004}));
  EXPECT_EQ(scaledAt, (std::vector<std::int64_t>{1000, 1010, 1020, 1030, 1040}));
  // Work of 15 ms of wall time is 150 ms of scaled time: more than 100 ms behind, the schedule
  // restarts from now, as in real time.
  FakeClock slowWall;
  ScaledLoopClock slow(slowWall, 10.0);
  std::vector<std::int64_t> slowAt;
  lf_runSchedule(slow, [&] {
    slowAt.push_back(slowWall.elapsed().count());
    gv_secondTick = false;
    if (slowAt.size() == 2) slowWall.spend(15ms);
    return slowAt.size() < 4;
  });
  EXPECT_EQ(slowAt, (std::vector<std::int64_t>{0, 1, 17, 18}));
}

// The run's seconds, driven through the tick as the simulator's per-second block drives them,
// on a headless window with the program's controls.
class MainLoopSeconds : public testing::Test {
 protected:
  void SetUp() override {
    gf_setWindow(&window);
    lf_createControls();
    gv_simRunning = true;
  }
  void TearDown() override { gf_setWindow(nullptr); }
  void runTo(int second) {
    while (gv_seconds < second) {
      gv_secondTick = true;
      ASSERT_TRUE(lf_tick());
    }
  }
  bool enabled(const Control& c) { return window.control(c.controlId)->enabled; }
  HeadlessWindow window;
};

TEST_F(MainLoopSeconds, AStaticUpdatePassesBothPhasesThenFreesReReadAndTheNextAnnouncement) {
  gParkingStatus.parkingPossible.store(true);
  gParkingStatus.minutesToUpdate.store(1);
  runTo(59);
  EXPECT_FALSE(gv_staticUpdatePending.load());
  runTo(60);  // the minutes counter runs out
  EXPECT_TRUE(gv_staticUpdatePending.load());
  EXPECT_EQ(gf_messageArea().messageText, "Orvane will update static parking in 15 seconds ...");
  EXPECT_FALSE(enabled(BUTTON_REREAD));

  gv_reqReread = true;
  runTo(74);
  EXPECT_FALSE(gCollectCallsigns.load());
  runTo(75);  // first phase: the feed collects the callsigns the adjustment will see
  EXPECT_TRUE(gCollectCallsigns.load());
  EXPECT_TRUE(gv_staticUpdateRunning.load());
  runTo(89);
  EXPECT_TRUE(gv_reqReread.load()) << "no Re-read while the update runs";
  runTo(90);  // second phase
  EXPECT_FALSE(gv_staticUpdatePending.load());
  EXPECT_FALSE(gv_staticUpdateRunning.load());
  EXPECT_EQ(gf_messageArea().messageText, "");
  EXPECT_TRUE(enabled(BUTTON_NOW)) << "the parking controls are free again";
  runTo(95);  // the next five-second mark serves the waiting Re-read
  EXPECT_FALSE(gv_reqReread.load());
  EXPECT_TRUE(enabled(BUTTON_REREAD));

  gParkingStatus.minutesToUpdate.store(1);
  runTo(120);
  EXPECT_TRUE(gv_staticUpdatePending.load()) << "the next update is announced again";
  EXPECT_EQ(gf_messageArea().messageText, "Orvane will update static parking in 15 seconds ...");
}

TEST_F(MainLoopSeconds, WithoutAParkAirportOrWithInitialLoadOnlyNothingIsAnnounced) {
  gParkingStatus.minutesToUpdate.store(1);
  runTo(60);
  EXPECT_FALSE(gv_staticUpdatePending.load());
  EXPECT_EQ(gParkingStatus.minutesToUpdate.load(), 20);
  gParkingStatus.parkingPossible.store(true);
  INITIAL_LOAD_ONLY.set(true);
  gParkingStatus.minutesToUpdate.store(1);
  runTo(120);
  EXPECT_FALSE(gv_staticUpdatePending.load());
  INITIAL_LOAD_ONLY.set(INITIAL_LOAD_ONLY.defaultValue);
}

TEST_F(MainLoopSeconds, ARestartBetweenThePhasesLeavesNoUpdateHalfDone) {
  gParkingStatus.parkingPossible.store(true);
  gParkingStatus.minutesToUpdate.store(1);
  runTo(75);
  ASSERT_TRUE(gv_staticUpdateRunning.load());
  lf_resetRunState();
  EXPECT_FALSE(gv_staticUpdatePending.load());
  EXPECT_FALSE(gv_staticUpdateRunning.load());
  EXPECT_FALSE(gv_staticUpdateSecondPhase);
  EXPECT_EQ(gv_seconds, 0);
}

TEST_F(MainLoopSeconds, AResetZeroesTheMessageSecondsAndKeepsTheError) {
  setMessage("a message");
  runTo(10);
  setError("an error");
  lf_resetRunState();
  EXPECT_EQ(gf_messageArea().secondCounter, 0u);
  EXPECT_EQ(gf_messageArea().errorText, "an error");
}

}  // namespace
}  // namespace orv
