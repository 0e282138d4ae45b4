#pragma once
// Where a run stands, for the window and for whoever waits for a stage to be reached.
#include <atomic>
#include <cstdint>
#include <string_view>

namespace orv {

enum class RunStage : std::int32_t {
  NotStarted,
  Preparing,
  ScanningLiveries,
  WaitingForSim,
  ScanningAirports,
  WaitingForRealTraffic,
  StartingReaders,
  Running,
  FlightNotRunning,
  Closing,
};

inline std::atomic<RunStage> gv_runStage{RunStage::NotStarted};

}  // namespace orv
