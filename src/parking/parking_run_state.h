#pragma once
// Where an update of static parking stands. Written by the run thread, read by the window.
#include <atomic>

namespace orv {

// An update of static parking is announced, or in progress (the parking controls are blocked).
inline std::atomic<bool> gv_staticUpdatePending{false};
inline std::atomic<bool> gv_staticUpdateRunning{false};
// An announced update has passed its first phase. Run thread only.
inline bool gv_staticUpdateSecondPhase = false;

// At the reset of a run: no update announced, running or half done.
void lf_resetParkingRunState();

}  // namespace orv
