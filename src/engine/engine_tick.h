#pragma once
// The engine's tick of 10 ms; 0 when the run loop starts. Only the run thread writes it; the
// Traffic Reader reads it to stamp when a report is due, where a value one tick old is fine.
#include <atomic>
#include <cstdint>

namespace orv {

inline std::atomic<std::int32_t> gv_tick{0};

}  // namespace orv
