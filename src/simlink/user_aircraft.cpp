#include "simlink/user_aircraft.h"

#include <mutex>

#include "foundation/log.h"
#include "foundation/run_flags.h"
#include "simlink/sim_run_state.h"
#include "foundation/time_text.h"
#include "platform/simconnect/simconnect.h"
#include "simlink/sim_ids.h"
#include "simlink/sim_session.h"
#include "simlink/user_stand.h"

namespace orv {
namespace {

// One request about the user aircraft under gSimMutex; a refusal is logged with its own
// text and ends all requests of the run.
bool lf_requestUser(std::uint32_t request, std::uint32_t definition, SIMCONNECT_PERIOD period, const char* failure) {
  HRESULT hr = S_OK;
  {
    std::lock_guard lock(gSimMutex);
    hr = SimConnect_RequestDataOnSimObject(gv_simHandle, request, definition, SIMCONNECT_OBJECT_ID_USER, period);
  }
  if (SUCCEEDED(hr)) return true;
  gf_logError(failure);
  lf_simRequestError();
  return false;
}

}  // namespace

UserBlock lf_requestUserPosition() {
  if (!gv_simRequestFailed.load())
    lf_requestUser(kReqUserPosition, kDefUserPosition, SIMCONNECT_PERIOD_ONCE, "SimConnect request user ac position fails");
  std::lock_guard lock(gSimMutex);
  return gUserData;
}

void lf_refreshUserSnapshot() { gUserSnapshot = lf_requestUserPosition(); }

void lf_requestUserTitleAndModel() {
  if (gv_simRequestFailed.load()) return;
  if (!lf_requestUser(kReqUserTitle, kDefUserTitle, SIMCONNECT_PERIOD_ONCE, "SimConnect request user ac title fails"))
    return;
  lf_requestUser(kReqUserModel, kDefUserModel, SIMCONNECT_PERIOD_ONCE, "SimConnect reques user ac model fails");
}

bool lf_requestGroundAirData() {
  if (gv_simRequestFailed.load()) return false;
  return lf_requestUser(kReqGroundAir, kDefGroundAir, SIMCONNECT_PERIOD_SECOND, "SimConnect request ac gnd/air fails");
}

std::int64_t gf_simEpochOf(const UserBlock& block) {
  const std::int64_t y = block.zuluYear - 1;
  const std::int64_t c = y / 100;
  const std::int64_t daysBeforeYear = (y * 1461) / 4 + c / 4 - c;
  const std::int64_t days = block.zuluDayOfYear + daysBeforeYear - 719163;
  return days * 86400 + block.zuluTime;
}

void lf_onUserPosition(const UserBlock& block, std::uint32_t objectId) {
  UserBlock data = block;
  if (data.alt < 0) data.alt = 0;
  {
    std::lock_guard lock(gSimMutex);
    gUserData = data;
  }
  // The first block of a run has nothing to compare with, and neither has a block at 0,0.
  const LatLon now{data.lat, data.lon};
  if (gf_userPositionKnown(gLastUserPos.lat, gLastUserPos.lon) && gf_userPositionKnown(now.lat, now.lon) &&
      gf_distance(gLastUserPos, now) > kTeleportNm) {
    gf_log("Teleport");
    requestStop(ExitReason::NewFlight, 45);
  }
  gLastUserPos = now;
  lf_followUserStand(now);
  if (gv_rtProf.load()) gv_simEpoch = gf_simEpochOf(data);
  gv_userObjectId = objectId;
}

void lf_onUserGroundAir(std::int64_t onGround) {
  // The simulator's second is the program's clock, also before the user is placed.
  if (gf_userPositionKnown(gUserData)) {
    gv_userOnGround = onGround != 0;
    gv_userAircraftKnown = true;
  }
  gv_secondTick = true;
}

void gf_clearUserAircraft() {
  {
    std::lock_guard lock(gSimMutex);
    gUserData = UserBlock{};
  }
  gUserSnapshot = UserBlock{};
  gLastUserPos = LatLon{};
  gv_simEpoch = 0;
  gv_userAircraftKnown = false;
  gv_userOnGround = false;
}

}  // namespace orv
