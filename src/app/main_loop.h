#pragma once
// The running stage: a 10 ms tick for the engine and the work of every second.
#include <chrono>
#include <cstdint>
#include <functional>

namespace orv {

// The loop's clock, injectable so that its catch-up rules can be checked without sleeping.
class LoopClock {
 public:
  using time_point = std::chrono::steady_clock::time_point;
  virtual ~LoopClock() = default;
  virtual time_point now() = 0;
  virtual void sleepUntil(time_point t) = 0;
};

class SteadyLoopClock final : public LoopClock {
 public:
  time_point now() override { return std::chrono::steady_clock::now(); }
  void sleepUntil(time_point t) override;
};

// Runs `scale` times faster than the clock it is given: a replay faster than real time keeps
// the loop's ticks in step with the stand-in simulator's scaled seconds.
class ScaledLoopClock final : public LoopClock {
 public:
  ScaledLoopClock(LoopClock& wall, double scale);
  time_point now() override;
  void sleepUntil(time_point t) override;

 private:
  LoopClock& wall_;
  double scale_;
  time_point origin_;
};

// Simulated seconds per wall second ("--time-scale"); 1 in real time.
inline double gv_timeScale = 1.0;

// Calls tick every 10 ms until it returns false. Behind by more than 100 ms, the schedule
// restarts from now instead of running ticks back to back; a second tick of the simulator
// re-reads the clock, so the loop follows the simulator's seconds.
void lf_runSchedule(LoopClock& clock, const std::function<bool()>& tick);

// The loop's own state in a run; run thread only.
inline std::int32_t gv_seconds = 0;  // seconds since the main loop began, back to 0 at 86400
inline bool gv_flightNotRunning = false;
// At the reset of a run.
void lf_resetMainLoopState();

void lf_mainLoop();
// One tick; false when the run must end.
bool lf_tick();
void lf_flightNotRunning();
void lf_everySecond();
void lf_every30Seconds();

}  // namespace orv
