#pragma once
// The flags that every loop of a run tests, and the one way to end a run: requestStop.
#include <atomic>
#include <cstdint>
#include <string_view>

namespace orv {

inline std::atomic<bool> gv_stopRun{false};
inline std::atomic<bool> gv_userClosing{false};

inline bool gf_stopping() { return gv_stopRun.load() || gv_userClosing.load(); }

// Why a run ends; decides whether the process goes on with a new run.
enum class ExitReason : std::int32_t {
  NotYetSet = 0,
  SimWasClosed = 1,
  NewFlight = 2,
  NewSettings = 3,
  UserClosedSim = 4,
  SimConnectError = 5,
  ReaderError = 6,
  SystemError = 7,
  NewVersion = 8,
};

// The text of a reason as the log shows it: "NOT YET SET", "SIM WAS CLOSED", ...
std::string_view gf_exitReasonText(ExitReason reason);

inline std::atomic<ExitReason> gv_exitReason{ExitReason::NotYetSet};
inline std::atomic<std::int32_t> gv_restartSeconds{0};

// The first request of a run wins: it sets the reason and the restart countdown; later
// requests only find gv_stopRun already set and change nothing.
void requestStop(ExitReason reason, std::int32_t seconds);

// The close paths: USER CLOSED SIM only when no reason is there yet.
void gf_setUserClosedIfUnset();

// At the reset of a run: not stopping, no reason, no countdown.
void gf_resetRunFlags();

}  // namespace orv
