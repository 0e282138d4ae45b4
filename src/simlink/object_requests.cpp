#include "simlink/object_requests.h"

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
  {
    std::lock_guard lock(gSimMutex);
    hr = SimConnect_RequestDataOnSimObjectType(gv_simHandle, kReqInRange, kDefInRange,
                                               static_cast<DWORD>(gv_rangeMeters), SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT);
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
