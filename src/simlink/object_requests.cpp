#include "simlink/object_requests.h"

#include <algorithm>
#include <cstdint>
#include <mutex>

#include "foundation/log.h"
#include "foundation/parameters.h"
#include "simlink/sim_run_state.h"
#include "platform/simconnect/simconnect.h"
#include "simlink/sim_ids.h"
#include "simlink/sim_session.h"

namespace orv {

void lf_requestAircraftInRange() {
  if (gv_simRequestFailed.load()) return;
  HRESULT hr = S_OK;
  const auto radius = static_cast<DWORD>(std::clamp<std::int32_t>(gv_rangeMeters.load(std::memory_order_relaxed), 0, static_cast<std::int32_t>(kMaxRadiusMeters)));
  {
    std::lock_guard lock(gSimMutex);
    hr = SimConnect_RequestDataOnSimObjectType(gv_simHandle, kReqInRange, kDefInRange, radius,
                                               SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT);
    // The helicopters we create are objects of their own type; without them they would never
    // be seen to appear.
    if (SUCCEEDED(hr))
      hr = SimConnect_RequestDataOnSimObjectType(gv_simHandle, kReqHelicoptersInRange, kDefInRange, radius,
                                                 SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER);
  }
  if (FAILED(hr)) {
    gf_logError("SimConnect request ac within range fails");
    lf_simRequestError();
  }
}

void lf_requestStaticData(std::uint32_t objectid) {
  if (gv_simRequestFailed.load()) return;
  HRESULT hr = S_OK;
  {
    std::lock_guard lock(gSimMutex);
    hr = SimConnect_RequestDataOnSimObject(gv_simHandle, kReqStaticData, kDefStaticData, objectid,
                                           SIMCONNECT_PERIOD_ONCE);
  }
  if (FAILED(hr)) {
    gf_logError("SimConnect request StaticCG fails");
    lf_simRequestError();
  }
}

}  // namespace orv
