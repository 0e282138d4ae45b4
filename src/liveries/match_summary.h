#pragma once
// How the liveries of live aircraft were found: one counter per step of the matching ladder,
// from the start of the process, written to the log at the turn of the day and at a stop.
#include <array>
#include <cstdint>

namespace orv {

inline constexpr int kMatchSteps = 7;

// Counted on the engine's thread.
inline std::array<std::uint32_t, kMatchSteps> matchCounters{};

// The counters in a box of the log, and the liveries the simulator refused; nothing while
// every counter is 0.
void gf_writeMatchingSummary();

}  // namespace orv
