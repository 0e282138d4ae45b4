#pragma once
// Heap allocations of this process so far: the benchmarks replace the global operator new to
// count them, so that a path that must not allocate shows it.
#include <cstdint>

namespace orv::bench {

std::uint64_t allocationCount();

}  // namespace orv::bench
