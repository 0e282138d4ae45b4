#include "app/main_loop.h"

#include <gtest/gtest.h>

#include <vector>

#include "simlink/sim_run_state.h"

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
std::vector<long> runTicks(FakeClock& clock, int count, std::vector<ms> work = {}) {
  std::vector<long> at;
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
  EXPECT_EQ(runTicks(clock, 5), (std::vector<long>{0, 10, 20, 30, 40}));
}

TEST(MainLoopSchedule, CatchesUpBackToBackWithinHundredMilliseconds) {
  FakeClock clock;
  // The third tick takes 50 ms: the ticks due meanwhile follow at once, then the schedule holds.
  EXPECT_EQ(runTicks(clock, 9, {0ms, 0ms, 50ms}), (std::vector<long>{0, 10, 20, 70, 70, 70, 70, 70, 80}));
}

TEST(MainLoopSchedule, MoreThanHundredMillisecondsBehindRestartsFromNow) {
  FakeClock clock;
  EXPECT_EQ(runTicks(clock, 5, {0ms, 0ms, 150ms}), (std::vector<long>{0, 10, 20, 180, 190}));
  FakeClock exact;
  // 100 ms behind is not yet more than 100 ms.
  EXPECT_EQ(runTicks(exact, 5, {0ms, 0ms, 100ms}), (std::vector<long>{0, 10, 20, 120, 120}));
}

TEST(MainLoopSchedule, ASecondTickReadsTheClockAgain) {
  FakeClock late;
  late.oversleep = 4ms;
  // Late wake-ups don't shift the schedule...
  EXPECT_EQ(runTicks(late, 5), (std::vector<long>{0, 14, 24, 34, 44}));
  FakeClock second;
  second.oversleep = 4ms;
  second.secondTickAtSleep = 2;
  // ...until the simulator's second arrives: from then on the ticks follow the clock.
  EXPECT_EQ(runTicks(second, 5), (std::vector<long>{0, 14, 24, 38, 48}));
}

TEST(MainLoopSeconds, PeriodicWorkBySecond) {
  struct Expect {
    int second;
    bool parking, feedStatus, twin, five, staticUpdate, every30;
  } cases[] = {
      {1, false, false, false, false, false, false},   {5, false, false, false, true, false, false},
      {15, false, false, false, true, true, false},    {16, true, false, false, false, false, false},
      {30, false, false, false, true, true, true},     {59, false, true, false, false, false, false},
      {61, false, false, true, false, false, false},   {80, false, false, false, true, false, false},
      {160, false, false, false, true, false, false},  {976, true, false, true, false, false, false},
      {1200, false, false, false, true, true, true},    {3599, false, true, true, false, false, false},
  };
  for (const Expect& e : cases) {
    const SecondWork w = lf_secondWork(e.second, false);
    EXPECT_EQ(w.parking, e.parking) << e.second;
    EXPECT_EQ(w.feedStatus, e.feedStatus) << e.second;
    EXPECT_EQ(w.removeStaticTwin, e.twin) << e.second;
    EXPECT_EQ(w.fiveSecond, e.five) << e.second;
    EXPECT_EQ(w.staticUpdate, e.staticUpdate) << e.second;
    EXPECT_EQ(w.every30, e.every30) << e.second;
  }
  EXPECT_FALSE(lf_secondWork(32, true).parking) << "not while a static update is in its second phase";
}

}  // namespace
}  // namespace orv
