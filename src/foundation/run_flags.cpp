#include "foundation/run_flags.h"

#include <array>

namespace orv {

std::string_view gf_exitReasonText(ExitReason reason) {
  static constexpr std::array<std::string_view, 9> texts{
      "NOT YET SET",     "SIM WAS CLOSED", "NEW FLIGHT",   "NEW SETTINGS", "USER CLOSED SIM",
      "SIMCONNECT ERROR", "READER ERROR",   "SYSTEM ERROR", "NEW VERSION"};
  const auto i = static_cast<std::size_t>(reason);
  return i < texts.size() ? texts[i] : std::string_view("NOT YET SET");
}

void requestStop(ExitReason reason, std::int32_t seconds) {
  if (gv_stopRun.exchange(true)) return;
  gv_exitReason = reason;
  gv_restartSeconds = seconds;
}

void gf_resetRunFlags() {
  gv_stopRun = false;
  gv_userClosing = false;
  gv_exitReason = ExitReason::NotYetSet;
  gv_restartSeconds = 0;
}

void gf_setUserClosedIfUnset() {
  ExitReason expected = ExitReason::NotYetSet;
  gv_exitReason.compare_exchange_strong(expected, ExitReason::UserClosedSim);
}

}  // namespace orv
