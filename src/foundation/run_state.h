#pragma once
// The state of one run that several subsystems share. Everything here but gv_restarting,
// gv_exitCode, gv_dataFilesRead and gv_production goes back to its start between runs.
#include <atomic>
#include <cstdint>

namespace orv {

inline bool gv_restarting = false;     // this process has been through a restart
inline std::int32_t gv_exitCode = 0;   // handed to the message loop's quit
inline bool gv_production = false;     // a batch run: prepare data, then leave
inline bool gv_dataFilesRead = false;  // reference data read in this process
inline bool gv_rtOnThisPc = false;     // RealTraffic is installed on this computer
inline unsigned gv_workerThreads = 2;  // threads a scan may use

inline std::atomic<bool> gv_simRunning{false};        // the simulator reports a flight running
inline std::atomic<bool> gv_simRequestFailed{false};  // no further simulator requests this run
// Set by each per-second ground/air data block: the simulator's clock of the program.
inline std::atomic<bool> gv_secondTick{false};
inline std::int32_t gv_seconds = 0;  // seconds since the main loop began, back to 0 at 86400
inline bool gv_flightNotRunning = false;
inline std::atomic<bool> gv_userOnGround{false};
inline std::atomic<bool> gv_userAircraftKnown{false};
// An update of static parking is announced, or in progress (the parking controls are blocked).
inline std::atomic<bool> gv_staticUpdatePending{false};
inline std::atomic<bool> gv_staticUpdateRunning{false};

// One-shot requests of the window thread, taken by the run thread with an exchange to false.
inline std::atomic<bool> gv_reqFlushStatic{false};
inline std::atomic<bool> gv_reqReread{false};
inline std::atomic<bool> gv_reqCallsignToOid{false};
inline std::atomic<bool> gv_reqBlockCallsign{false};
inline std::atomic<bool> gv_reqShowObjectId{false};
inline std::atomic<bool> gv_reqRematch{false};

}  // namespace orv
