#pragma once
// The end of a run: close what it opened, then restart or end the program by its reason.
namespace orv {

void lf_closingDown();
// Shows "Restarting after {} seconds" counting down gv_restartSeconds, a second a step.
void lf_restartCountdown();
// Every run-scoped value back to its start, so that the next run begins like the first.
void lf_resetRunState();

}  // namespace orv
