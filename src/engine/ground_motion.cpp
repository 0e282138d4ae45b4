#include "engine/ground_motion.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "airportdata/stands.h"
#include "engine/ac_text.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/ground_curve.h"
#include "engine/position_stream.h"
#include "engine/pushback.h"
#include "engine/sim_port.h"
#include "engine/stand_contention.h"
#include "engine/take_off.h"
#include "foundation/log.h"

namespace orv {
namespace {

constexpr double kNmPerTickToKnots = 360000.0;
// Angles are compared within a tolerance below anything that the feed can tell apart, so that
// a limit of 3 degrees is 3 after the round trip through radians.
constexpr double kAngleTolerance = 1e-9;
// Up to this turn a leg goes straight; beyond it the aircraft turns on the spot.
constexpr double kStraightDeg = 3.0;
constexpr double kCornerSplitDeg = 45.0;
constexpr double kNoCurveDeg = 160.0;
constexpr double kSlowLegNm = 50.0 / kMetersPerNm;
constexpr double kSlowLegKnots = 43.0;
constexpr std::int32_t kSlowLegTicks = 600;
constexpr double kParkNearNm = 35.0 / kMetersPerNm;
constexpr double kParkSpeedKnots = 5.0;
constexpr double kRolloutEndDeg = 15.0;
constexpr double kSpoilersOffKnots = 90.0;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }

// Ticks from a distance and a speed; a speed of 0 that slipped through makes no integer.
std::int32_t lf_ticksOf(double nm, double knots) {
  const double t = std::round(nm * kNmPerTickToKnots / knots);
  if (!(t >= 0 && t <= std::numeric_limits<std::int32_t>::max())) throw std::range_error("narrowing_error");
  return static_cast<std::int32_t>(t);
}

double lf_absDeg(double radians) { return std::fabs(gf_normAngle(radians)) * kDegreesPerRadian; }

std::int32_t lf_idlePower(const LiveAc& ac) { return ac.acClass == kRotorcraft ? 4 : 0; }

// Spoilers retracted and the levers at zero; a light aircraft has no such levers to write.
void lf_leversIdle(LiveAc& ac) {
  gf_sim().setSpoilers(ac, false);
  if (ac.acClass != kLight) gf_sim().setLevers(ac.objectid, 0, 0, 0);
}

// Corners of the legs ahead: a curve, a split of the leg, or nothing.
void lf_planCorner(LiveAc& ac) {
  auto& st = ac.stream;
  if (st[1].stopped) return;
  if (st.size() >= 3 && !st[2].stopped) {
    const double a = lf_absDeg(gf_bearing(pos(st[1]), pos(st[2])) - ac.heading);
    if (a <= kStraightDeg + kAngleTolerance) {
      lf_splitOnSpeed(ac);
    } else if (a > kCornerSplitDeg && gf_distance(pos(st[0]), pos(st[1])) > kSlowLegNm && st[0].gs <= kSlowLegKnots &&
               st[1].tick - st[0].tick >= kSlowLegTicks) {
      lf_splitLeg(ac);  // a long slow leg turns at its far half
    } else if (a <= kNoCurveDeg && !gf_samePosition(pos(st[0]), pos(st[2]))) {
      lf_buildCurve(ac);
      ac.curveAngle = a;
    } else {
      lf_splitOnSpeed(ac);
    }
  } else if (st.size() >= 3) {
    lf_splitOnSpeed(ac);
  } else if (st.size() == 2 && ac.extendCount < 1) {
    lf_splitOnSpeed(ac);
  }
  if (!lf_curveInForce(ac)) {
    ac.turnAngle = lf_absDeg(ac.targetHeading - ac.heading);
    ac.sharpTurn = ac.turnAngle > kStraightDeg + kAngleTolerance ? 1 : 0;
  } else {
    ac.sharpTurn = 0;
  }
}

// The pushback reaches its midpoint, or its end.
void lf_pushStep(LiveAc& ac) {
  if (ac.pushStage > 0) --ac.pushStage;
  if (ac.pushStage == 1) {
    if (!ac.pushSet) {
      ac.stream.resize(ac.stream.size() - 1);  // straight on along the stand's axis
      return;
    }
    if (ac.noseRight) ac.stream.back() = ac.pushTail;
    lf_buildCurve(ac);
    const double n = std::max(std::round(90.0 / ac.groundTurn / 100.0), 1.0);
    ac.curveStep = 1.0 / n;
    ac.curveAngle = 90;
    return;
  }
  if (ac.pushStage < 1) {
    ac.targetHeading = ac.heading;
    gf_sim().startEngines(ac.objectid);
    gf_sim().setThrottle(ac, 0);
    gf_sim().setFlaps(ac, 1);
    gf_setFlightState(ac, kPushedBack);
    ac.pushStage = 1;
    ac.prevPushDist = 900.0;
    ac.extendCount = 0;
    ac.leavingStand = 0;
  }
}

// A taxiing aircraft at the end of its reports looks for a stand.
void lf_maybePark(LiveAc& ac) {
  const auto& st = ac.stream;
  if (ac.flightState != kTaxi || !st.back().stopped || gStands.empty()) return;
  if (!ac.towed && (ac.prevFlightState == kParked || ac.prevFlightState < kTaxi)) return;
  if (ac.extendCount < 1) {
    if (st[1].gs <= kParkSpeedKnots && gf_distance({ac.lat, ac.lon}, pos(st.back())) <= kParkNearNm)
      try2Park(ac, false);
  } else {
    try2Park(ac, ac.justLanded != 0);
  }
}

}  // namespace

void nextPosGround(LiveAc& ac) {
  try {
    if (ac.flightState == kPushingBack) {
      lf_pushStep(ac);
    } else if (ac.flightState == kParked) {
      if (ac.leavingStand) {
        // Off the stand forwards when the reports go ahead of the nose, else tail first.
        const double a = gf_normAngle(gf_bearing({ac.standLat, ac.standLon}, pos(ac.stream.back())) - ac.standHeading);
        if (std::fabs(std::round(a * kDegreesPerRadian)) < 90)
          lf_pullOut(ac);
        else
          lf_pushBack(ac);
      }
    } else {
      lf_planCorner(ac);
    }
    lf_maybePark(ac);
    lf_timeGroundLeg(ac);
  } catch (const std::exception& e) {
    gf_logAcFault("nextPosGround", e.what(), ac);
  }
}

void lf_timeGroundLeg(LiveAc& ac) {
  const Sample& s0 = ac.stream[0];
  const Sample& s1 = ac.stream[1];
  if (s1.stopped) {
    const std::int32_t d = std::max(s1.tick - s0.tick, 25);
    lf_clampDue(ac, std::max(s0.tick - gv_tick + d, 25));
    return;
  }
  ac.groundTurn = ac.turnRate;
  const double dist = gf_distance(pos(s0), pos(s1));
  const std::int32_t ticks = std::max(lf_ticksOf(dist, lf_meanSpeed(ac)), 25);
  if (lf_curveInForce(ac) || ac.sharpTurn) {
    const double a = ac.sharpTurn ? ac.turnAngle : ac.curveAngle;
    const double need = std::max(std::round(a / ac.groundTurn / 100.0), 1.0);
    if (a > 0 && dist > 0) {
      double r = ticks / need;
      if (a > kCornerSplitDeg) {
        ac.groundTurn *= std::min(r, std::min(a, 90.0) / 30.0);
        if (a >= 90) {
          ac.earlyLimit = std::max(ac.earlyLimit, 2000);
          ac.lateLimit = std::max(ac.lateLimit, 2000);
        }
      } else {
        if (r >= 1.2) r = std::min({r, r * 10.0 / a, r * 30.0 * kNmPerMetre / dist});
        if (r > 0) ac.groundTurn /= r;
      }
    }
  }
  lf_clampDue(ac, ticks);
}

void lf_groundStep(LiveAc& ac) {
  if (ac.flightState == kFlying || ac.flightState == kParked) {
    gf_setFlightState(ac, kTaxi);
  } else {
    if (ac.takingOff) gf_sim().setThrottle(ac, lf_rollThrottle(ac));
    if (ac.rollout) {
      const double a = lf_absDeg(ac.heading - ac.touchdownHeading);
      if (a >= kRolloutEndDeg - kAngleTolerance) {
        // Turned off the runway: the taxi set.
        gf_sim().setFlaps(ac, 0);
        ac.rollout = 0;
        ac.touchdownHeading = 0;
        gf_sim().setThrottle(ac, lf_idlePower(ac));
        lf_leversIdle(ac);
        gf_sim().setLights(ac.objectid, true, true, false, true, false, true, true);
      } else if (ac.stream[0].gs <= kSpoilersOffKnots) {
        lf_leversIdle(ac);
        gf_sim().setFlaps(ac, 1);
      }
    }
    if (!ac.takingOff && !ac.rollout) gf_sim().setThrottle(ac, lf_idlePower(ac));
  }
  if (!ac.rollout && !ac.takingOff) lf_relaxDueLimits(ac);
  if (ac.flareStage == 0 && ac.flightState != kTakeOff) {
    ac.pitch = ac.staticPitch;
    ac.bank = 0;
    ac.stepPitch = ac.stepBank = 0;
  }
  const double dv = lf_legTicks(ac);
  if (lf_curveInForce(ac)) ac.curveStep = 1.0 / dv;
  ac.speedNow = ac.flightState == kPushingBack ? -ac.stream[1].gs : ac.stream[1].gs;
  lf_takeOffTest(ac, dv);
}

void drive2Stand(LiveAc& ac, const Stand& stand) {
  auto& st = ac.stream;
  if (st.empty()) {
    gf_logError("{} empty sz?", "drive2Stand");
    return;
  }
  const LatLon at{stand.latitude, stand.longitude};
  const std::int32_t t = std::max(lf_ticksOf(gf_distance(pos(st.back()), at), ac.taxiSpeed), 100);
  const bool there = gf_samePosition(pos(st.back()), at);
  st.back().gs = ac.taxiSpeed;
  Sample s = st.back();
  s.lat = at.lat;
  s.lon = at.lon;
  s.alt = ac.alt;
  s.gs = s.tas = ac.taxiSpeed;
  s.track = stand.heading * kDegreesPerRadian;
  s.vs = 0;
  // Timed from the first sample; never before the last one that is already due.
  s.tick = std::max(st[0].tick + t, st.back().tick + 1);
  s.airborne = 0;
  s.stopped = there ? 1 : 0;
  s.roll.set(ac.bank);
  s.trueHeading.reset();
  st.push_back(s);
  Sample standing = s;
  standing.gs = standing.tas = 0;
  standing.stopped = 1;
  standing.tick = s.tick + 50;
  st.push_back(standing);
  ac.targetHeading = stand.heading;
  if (ac.extendCount >= 1) {
    ac.extendCount = 0;
    lf_widenDueLimits(ac);
  }
}

}  // namespace orv
