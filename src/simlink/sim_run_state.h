#pragma once
// What the SimClient thread learns of the simulator during a run, read by the run thread.
#include <atomic>

namespace orv {

inline std::atomic<bool> gv_simRunning{false};        // the simulator reports a flight running
inline std::atomic<bool> gv_simRequestFailed{false};  // no further simulator requests this run
// Set by each per-second ground/air data block: the simulator's clock of the program.
inline std::atomic<bool> gv_secondTick{false};
inline std::atomic<bool> gv_userOnGround{false};
inline std::atomic<bool> gv_userAircraftKnown{false};

}  // namespace orv
