#pragma once
// What the program keeps across the runs of one process; no reset of a run touches it.
#include <atomic>
#include <cstdint>

#include "liveries/livery_indexes.h"

namespace orv {

inline std::atomic<bool> gv_restarting{false};  // this process has been through a restart
inline std::atomic<std::int32_t> gv_exitCode{0};  // handed to the message loop's quit
inline bool gv_production = false;     // a batch run: prepare data, then leave
inline bool gv_dataFilesRead = false;  // reference data read in this process
inline unsigned gv_workerThreads = 2;  // threads a scan may use

// The state of a process that has not run yet; for tests that run many processes in one.
inline void lf_resetProcessState() {
  gv_restarting = false;
  gv_exitCode = 0;
  gv_production = false;
  gv_dataFilesRead = false;
  gv_workerThreads = 2;
  gf_resetLiveryIndexes();
}

}  // namespace orv
