#pragma once
// What the SimClient thread learns of the simulator during a run, read by the run thread.
#include <atomic>

#include "engine/user_snapshot.h"  // gv_userOnGround

namespace orv {

inline std::atomic<bool> gv_simRunning{false};        // the simulator reports a flight running, not paused
// Its two sources: the "Sim" event (a flight runs) and "Pause_EX1" (any pause flag set).
inline std::atomic<bool> gv_flightRunning{false};
inline std::atomic<bool> gv_flightPaused{false};
inline std::atomic<bool> gv_simRequestFailed{false};  // no further simulator requests this run
// Set by each per-second ground/air data block: the simulator's clock of the program.
inline std::atomic<bool> gv_secondTick{false};
inline std::atomic<bool> gv_userAircraftKnown{false};

}  // namespace orv
