#pragma once
// Time of day texts of the log, in UTC, and the clock that the program's texts follow.
#include <atomic>
#include <cstdint>
#include <ctime>
#include <string>

namespace orv {

// RealTraffic runs with its own time (its professional edition); then the feed's stamp is the clock.
inline std::atomic<bool> gv_rtProf{false};
// Last time stamp of the feed, in seconds since the epoch; 0 while none has come.
inline std::atomic<std::int64_t> gv_feedTimestamp{0};

// The feed's time when RealTraffic sets the clock, else the system clock.
std::time_t gf_programTime();

// "Mon Nov 23 06:59:01 2026"; "Invalid time" when the time cannot be broken down.
std::string gf_longTimeText(std::time_t t);
// "06:59:01", the eight characters of the clock in the long text.
std::string gf_shortTimeText(std::time_t t);
// Short text of the program's present time.
std::string gf_timeOfDay();

}  // namespace orv
