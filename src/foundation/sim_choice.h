#pragma once
// Which simulator this run talks to. Rewritten from SIM_CHOICE at every start of a run,
// before any thread that reads them is started, so plain variables suffice.
#include <cstdint>

namespace orv {

// True for MSFS 2020, false for MSFS 2024.
inline bool gv_isMsfs2020 = true;
// 1 for MSFS 2020, 2 for MSFS 2024; follows gv_isMsfs2020.
inline std::int32_t gv_simGeneration = 1;

}  // namespace orv
