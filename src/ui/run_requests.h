#pragma once
// One-shot requests of the window thread, taken once a second by the run thread with an
// exchange to false.
#include <atomic>

namespace orv {

inline std::atomic<bool> gv_reqFlushStatic{false};
inline std::atomic<bool> gv_reqReread{false};
inline std::atomic<bool> gv_reqCallsignToOid{false};
inline std::atomic<bool> gv_reqBlockCallsign{false};
inline std::atomic<bool> gv_reqShowObjectId{false};
inline std::atomic<bool> gv_reqRematch{false};

// At the reset of a run: a request of the run before is not carried over.
inline void lf_resetRunRequests() {
  for (auto* request : {&gv_reqFlushStatic, &gv_reqReread, &gv_reqCallsignToOid, &gv_reqBlockCallsign,
                        &gv_reqShowObjectId, &gv_reqRematch})
    request->store(false);
}

}  // namespace orv
