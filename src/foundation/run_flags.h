#pragma once
// The two flags that every loop of a run tests: the run must end, or the user closes.
#include <atomic>

namespace orv {

inline std::atomic<bool> gv_stopRun{false};
inline std::atomic<bool> gv_userClosing{false};

inline bool gf_stopping() { return gv_stopRun.load() || gv_userClosing.load(); }

}  // namespace orv
