#include "engine/arrival.h"

#include <cmath>

#include "airportdata/stands.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/landing.h"
#include "engine/position_stream.h"
#include "engine/sim_port.h"
#include "engine/spawning.h"
#include "foundation/day_and_slot.h"
#include "foundation/log.h"
#include "foundation/parameters.h"
#include "foundation/random.h"

namespace orv {
namespace {

constexpr double kAtStandNm = 2.0 / kMetersPerNm;
constexpr double kDriftStepNm = 3.0 / kMetersPerNm;
constexpr double kNearStandNm = 85.0 / kMetersPerNm;
constexpr double kLeftStandNm = 200.0 / kMetersPerNm;
// The parked leg of an aircraft whose reports ended runs a week.
constexpr std::int32_t kParkedLegTicks = 604800 * 100;
// A report this far round from the heading of an extended aircraft lies behind it.
constexpr double kBehindDeg = 100.0;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }
LatLon standPos(const LiveAc& ac) { return {ac.standLat, ac.standLon}; }

Stand* lf_stand(std::int32_t sid) { return sid > 0 ? findStand(gStands, static_cast<std::uint32_t>(sid)) : nullptr; }

// Ticks after parking within which a leaving aircraft is being towed, by class; 0: never.
std::int32_t lf_towWindow(std::int32_t acClass) {
  switch (acClass) {
    case kHeavy: return 360000;
    case kLarge: return 150000;
    case kBuzjets: return 90000;
    default: return 0;
  }
}

// Pushing back: the first report after the midpoint's plan tells which way the nose turns.
bool lf_pushingBackSample(LiveAc& ac, const Sample& s) {
  if (STRAIGHT_PBS_ONLY.value || ac.pushStage != 2) return false;
  double d = 0;
  if (s.trueHeading) {
    d = s.trueHeading.value - ac.heading;
  } else {
    if (s.track == 0) return false;
    d = s.track / kDegreesPerRadian - ac.heading;
  }
  ac.noseRight = gf_normAngle(d) > 0 ? 1 : 0;
  ac.pushSet = 1;
  return false;
}

// Pushed back and standing: taken once the reports move off.
bool lf_pushedBackSample(LiveAc& ac, Sample& s) {
  const double d = gf_distance({ac.lat, ac.lon}, pos(s));
  if ((d > 2.75 * ac.hwsp && d > ac.prevPushDist) || d > 6 * ac.hwsp) {
    s.stopped = 0;
    if (ac.extendCount > 0) {
      ac.stream[0].tick = gv_tick + 1;
      ac.extendCount = 0;
      lf_widenDueLimits(ac);
    }
    ac.pushSet = 0;
    ac.pushStage = 0;
    gf_setFlightState(ac, kTaxi);
    ac.standLat = ac.standLon = ac.standHeading = 0;
    ac.sid = 0;
    ac.standCargo = 0;
    ac.holding = 0;
    ac.holdTick = 0;
    return true;
  }
  if (!ac.holding) {
    ac.holding = 1;
    ac.holdTick = gv_tick;
  }
  ac.prevPushDist = d;
  return false;
}

// At or driving onto the stand: standing reports are dropped, a drift or a move off leaves.
bool lf_standSample(LiveAc& ac, Sample& s) {
  if (ac.simState <= kAdding2Sim) return false;
  ac.standConfirmed = 1;
  const double d = gf_distance(pos(s), standPos(ac));
  const double near = ac.prevFlightState == kParking ? 2 * kNearStandNm : kNearStandNm;
  if (d <= near) {
    ac.parkedTime = lf_systemTicks();
    if (ac.standDistMax == 0) {
      ac.standDistFirst = ac.standDistMax = d;
      ac.driftCount = 0;
      ac.leavingStand = 0;
      return false;
    }
    if (d >= ac.standDistMax + kDriftStepNm) {
      ac.standDistMax = d;
      ++ac.driftCount;
      const double drift = d - ac.standDistFirst;
      if (!((ac.driftCount >= 3 && drift >= ac.hwsp * 0.5) || drift > ac.hwsp)) {
        ac.leavingStand = 0;
        return false;
      }
    } else {
      if (ac.standDistMax - kDriftStepNm >= d) ac.driftCount = 0;
      ac.leavingStand = 0;
      return false;
    }
  } else if (ac.flightState == kParking) {
    // It drove past the stand.
    gf_setFlightState(ac, kTaxi);
    s.stopped = 0;
    return true;
  } else if (d > kLeftStandNm) {
    // The aircraft is elsewhere.
    gv_addRealStandOption(ac.sid, ac, 3);
    removeAircraftFromSim(ac);
    return false;
  }
  lf_leaveStand(ac, s);
  return true;
}

// Taxiing or flying: the standing test, and the end of an extension when a report arrives.
bool lf_movingSample(LiveAc& ac, Sample& s) {
  const bool r = lf_checkStanding(ac, s);
  if (!r || ac.extendCount < 1) return r;
  if (!ac.onGround &&
      std::fabs(gf_normAngle(gf_bearing(pos(ac.stream.back()), pos(s)) - ac.heading)) * kDegreesPerRadian >= kBehindDeg)
    return false;  // a report behind the extended aircraft isn't followed
  ac.extendCount = 0;
  lf_widenDueLimits(ac);
  ac.stream[0].tick = gv_tick + 1;
  ac.holding = 0;
  ac.holdTick = 0;
  return true;
}

}  // namespace

bool checkExtendingSituations(LiveAc& ac, Sample& s) {
  switch (ac.flightState) {
    case kPushingBack: return lf_pushingBackSample(ac, s);
    case kPushedBack: return lf_pushedBackSample(ac, s);
    case kParking:
    case kParked: return lf_standSample(ac, s);
    case kTaxi:
    case kTakeOff:
    case kFlying:
      if (ac.approach || ac.rollout) return checkNewPosDuringLanding(ac, s);
      return lf_movingSample(ac, s);
    default: return false;
  }
}

void lf_leaveStand(LiveAc& ac, Sample& s) {
  s.stopped = 0;
  ac.leavingStand = 1;
  if (ac.prevFlightState == kParked) return;
  if (ac.extendCount > 0) {
    if (ac.flightState == kParked) {
      if (ac.justLanded) {
        const std::int32_t since = gv_tick - (ac.stream[0].tick - kParkedLegTicks);
        // So soon after landing, the aircraft is being towed to another stand.
        if (since < lf_towWindow(ac.acClass)) ac.towed = 1;
        ac.justLanded = 0;
      }
      ac.stream[0].tick = gv_tick + 1;
    }
    ac.extendCount = 0;
    lf_widenDueLimits(ac);
  }
  gv_addRealStandOption(ac.sid, ac, 2);
  if (Stand* stand = lf_stand(ac.sid)) stand->liveAtStand = false;
  gf_setFlightState(ac, kParked);
}

void lf_arriveAtStand(LiveAc& ac) {
  Stand* stand = lf_stand(ac.sid);
  if (stand != nullptr && stand->liveAtStand) {
    // Another aircraft got there first.
    ac.extendCount = 1;
    removeAircraftFromSim(ac);
    stand->liveAtStand = true;
    return;
  }
  if (gf_distance({ac.lat, ac.lon}, standPos(ac)) > kAtStandNm) {
    gf_setFlightState(ac, kTaxi);
    return;
  }
  gf_setFlightState(ac, kParked);
  ac.parkedSlot = gv_dayAndSlot.load();
  if (stand != nullptr) stand->liveAtStand = true;
  if (ac.towed) gf_log("          towed aircraft {} parks", ac.cs);
  ac.stream[0].stopped = 1;
  ac.parkedTime = lf_systemTicks();
  ac.standDistMax = 0;
  ac.driftCount = 0;
  gv_learnStandCargo(ac);
  lf_parkedConfig(ac);
  gf_log("{:8}: {:8} arrived at stand", lf_standName(ac.sid), ac.cs);
  gRouteQueue.push_back(ac.hexid);
  gv_addRealStandOption(ac.sid, ac, 0);
  gv_maxParkCheck(0);
}

void lf_parkedConfig(AcRecord& ac) {
  gf_sim().setThrottle(ac, 0);
  gf_sim().setFlaps(ac, 0);
  gf_sim().stopEngines(ac.objectid);
  // A cargo stand is dark; elsewhere, with RANDOM, now and then a cabin too.
  const bool cabin = !ac.standCargo && gf_randomIndex(10) != 9;
  gf_sim().setLights(ac.objectid, NAV_LIGHTS_WHILE_PARKED.value, false, false, false, false, true, cabin);
}

}  // namespace orv
