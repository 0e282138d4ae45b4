#include "engine/position_stream.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/ac_text.h"
#include "engine/air_leg.h"
#include "engine/aircraft_removal.h"
#include "engine/arrival.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/ground_curve.h"
#include "engine/ground_motion.h"
#include "engine/park_airport_site.h"
#include "engine/sim_port.h"
#include "engine/stand_contention.h"
#include "engine/traffic_intake.h"
#include "engine/user_snapshot.h"
#include "foundation/parameters.h"

namespace orv {
namespace {

constexpr double kNmPerTickToKnots = 360000.0;
// A short stop is taken out of a ground path when the aircraft moves on within 22 m of it.
constexpr double kShortStopNm = 0.011879049676025918;
// Position noise of a standing aircraft: about 16 m.
constexpr double kStandingNoiseDeg = 0.00015;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }

// The seconds of the parked leg: a week.
constexpr std::int32_t kParkedLegTicks = 604800 * 100;

// The speed of an extended take-off roll, by the speed reached; also its vertical speed.
void lf_takeOffRollSpeed(Sample& s, double& speed) {
  const double gs = s.gs;
  if (gs <= 30) {
    speed = 40;
  } else if (gs <= 60) {
    speed = 80;
  } else if (gs <= 100) {
    speed = 110;
  } else if (gs <= 140) {
    speed = 150, s.vs = 600;
  } else if (gs <= 160) {
    speed = 170, s.vs = 1200;
  } else {
    speed = 180, s.vs = 2400;
  }
}

double lf_rolloutSpeed(double gs) {
  if (gs >= 140) return 100;
  if (gs >= 100) return 80;
  if (gs >= 80) return 60;
  if (gs >= 60) return 30;
  return 20;
}

// The reports show a landed aircraft in the air again: it takes off once more.
void lf_takeOffAgain(LiveAc& ac) {
  gf_setFlightState(ac, kTaxi);
  ac.takingOff = 1;
  gf_sim().setThrottle(ac, 3);
  gf_sim().setSpoilers(ac, true);
  gf_sim().setFlaps(ac, 1);
  ac.approach = ac.justLanded = ac.cleanConfig = 0;
  gf_sim().setLights(ac.objectid, true, true, true, true, true, true, false);
  lf_widenDueLimits(ac);
}

// A ground path that stood and moves on: the stop is cut out when it was short.
void lf_cutShortStop(LiveAc& ac, const Sample& s) {
  auto& st = ac.stream;
  const Sample& last = st.back();
  if (s.stopped) {
    if (std::all_of(st.begin(), st.end(), [](const Sample& x) { return x.stopped != 0; })) st.resize(1);
    return;
  }
  if (st.size() < 3) return;
  const std::int32_t lastTick = last.tick;
  std::size_t k = st.size() - 2;
  for (int looked = 0; looked < 5; ++looked, --k) {
    if (!st[k].stopped) {
      if (lastTick - st[k].tick < 1500 || gf_distance(pos(s), pos(st[k])) <= kShortStopNm) st.resize(k + 1);
      return;
    }
    if (k == 0) return;
  }
}

}  // namespace

void lf_widenDueLimits(LiveAc& ac) {
  ac.earlyLimit = 3000;
  ac.lateLimit = ac.takingOff ? 5000 : 3000;
}

void lf_relaxDueLimits(LiveAc& ac) {
  ac.earlyLimit = std::max(ac.earlyLimit - 100, 1000);
  ac.lateLimit = std::max(ac.lateLimit - 100, 1000);
}

bool lf_checkStanding(LiveAc& ac, Sample& s) {
  if (ac.acClass == kRotorcraft) return true;
  const Sample& last = ac.stream.back();
  const bool same = gf_samePosition(pos(s), pos(last));
  s.stopped = same ? 1 : 0;
  const bool inAir = s.airborne || (ac.simState == kActive && !ac.onGround);
  if (same) {
    if (inAir) return false;
    if (ac.takingOff && s.gs > 0 && last.gs >= 30) return false;
    s.gs = 0;
    return true;
  }
  if (std::fabs(s.lat - last.lat) <= kStandingNoiseDeg && std::fabs(s.lon - last.lon) <= kStandingNoiseDeg) {
    if (inAir) return false;
    if (ac.takingOff && s.gs > 0 && last.gs >= 50) return false;
    const std::int32_t tick = s.tick;
    s = last;
    s.tick = tick;
    s.gs = 0;
    s.stopped = 1;
    return true;
  }
  if (s.gs != 0) return true;
  return !((ac.takingOff || s.airborne) && last.gs >= 50);
}

void decodeExisting(LiveAc& ac, Sample s) {
  try {
    auto& st = ac.stream;
    if (st.size() > kMaxStreamSamples) {
      removeAircraftFromSim(ac);
      return;
    }
    if (ac.holding && !st.empty() &&
        gf_distance(pos(s), pos(st.front())) * kMetersPerNm > HOLDING_THRESHOLD_METERS.value) {
      ac.holding = 0;
      ac.holdTick = 0;
      removeAircraftFromSim(ac);
      return;
    }
    if (ac.flightState == kBirth) {
      if (st.empty() || !lf_checkStanding(ac, s)) return;
      if (st.back().tick >= s.tick) s.tick = st.back().tick + 1;
      st.push_back(s);
      return;
    }
    if (!checkExtendingSituations(ac, s)) return;
    if (st.empty()) {
      st.push_back(s);
      return;
    }
    if (!s.airborne && st.back().stopped) lf_cutShortStop(ac, s);
    const Sample& last = st.back();
    if (last.tick >= s.tick) s.tick = last.tick + 1;
    if (!ac.takingOff && ac.onGround && ac.simState == kActive) {
      if (!ac.rollout) {
        if (ac.flightState == kTaxi && (s.airborne || (s.gs >= 43 && last.gs >= 43))) lf_prepareTakeOff(ac);
      } else if (last.airborne && s.airborne) {
        lf_takeOffAgain(ac);
      }
    }
    st.push_back(s);
    if (st.size() == 2 && st[0].stopped && st[1].stopped) {
      st[0].tick = gv_tick + 1;
      st[0].gs = st[1].gs;
    }
  } catch (const std::exception& e) {
    gf_logAcFault("decodeExisting", e.what(), ac);
  }
}

void nextPosMain(LiveAc& ac) {
  try {
    auto& st = ac.stream;
    while (true) {
      if (st.size() >= 2) {
        if (!ac.onGround && ac.acClass != kRotorcraft && st[1].stopped) {
          st.erase(st.begin() + 1);  // an aircraft in the air doesn't stop
          continue;
        }
        break;
      }
      if (!lf_extendStream(ac)) {
        removeAircraftFromSim(ac);
        return;
      }
    }
    lf_nextPos(ac);
  } catch (const std::exception& e) {
    gf_logAcFault("nextPosMain", e.what(), ac);
  }
}

std::int32_t lf_legTicks(const LiveAc& ac) {
  const std::int32_t d = ac.stream[1].tick - gv_tick;
  return d < 25 ? 25 : d;
}

void lf_nextPos(LiveAc& ac) {
  lf_clearCurve(ac);
  ac.curveT = 0;
  Sample& s0 = ac.stream[0];
  Sample& s1 = ac.stream[1];
  if (gf_samePosition(pos(s0), pos(s1))) s1.stopped = 1;
  if (!s1.stopped) ac.targetHeading = gf_bearing(pos(s0), pos(s1));
  if (ac.onGround)
    nextPosGround(ac);
  else
    lf_airLegTiming(ac);
  if (s1.stopped) {
    ac.stepLat = ac.stepLon = 0;
    if (!ac.rollout && !ac.takingOff) lf_relaxDueLimits(ac);
  } else {
    lf_positionSteps(ac);
    if (ac.onGround)
      lf_groundStep(ac);
    else
      lf_airStep(ac);
  }
  ac.stream.pop_front();
}

void lf_positionSteps(LiveAc& ac) {
  const Sample& s1 = ac.stream[1];
  const double dv = lf_legTicks(ac);
  double dLon = s1.lon - ac.lon;
  // Across the antimeridian the short way round; the motion step folds the longitude.
  if (dLon > 180.0) dLon -= 360.0;
  if (dLon < -180.0) dLon += 360.0;
  ac.stepLat = (s1.lat - ac.lat) / dv;
  ac.stepLon = dLon / dv;
}

double lf_meanSpeed(const LiveAc& ac) {
  const Sample& a = ac.stream[0];
  const Sample& b = ac.stream[1];
  if (a.gs == 0 && b.gs == 0)
    return std::max(gf_distance(pos(a), pos(b)) * kNmPerTickToKnots / std::max(b.tick - a.tick, 25), 1.0);
  return (a.gs + b.gs) * 0.5;
}

void lf_clampDue(LiveAc& ac, std::int32_t ticks) {
  std::int32_t d = gv_tick + ticks;
  if (ac.extendCount < 1) {
    const std::int32_t p = ac.stream[1].tick;
    if (d > p + ac.lateLimit)
      d = p + ac.lateLimit;
    else if (d < p - ac.earlyLimit)
      d = p - ac.earlyLimit;
  }
  ac.stream[1].tick = std::max<std::int32_t>(d, gv_tick);
}

void lf_airLegTiming(LiveAc& ac) {
  const Sample& s0 = ac.stream[0];
  const Sample& s1 = ac.stream[1];
  if (s1.stopped) {
    if (ac.acClass == kRotorcraft) lf_timeGroundLeg(ac);
    return;
  }
  double v = lf_meanSpeed(ac);
  if (ac.approach && !s1.airborne) v = s0.gs > 0 ? s0.gs : 100.0;
  const double ticks = std::round(gf_distance(pos(s0), pos(s1)) * kNmPerTickToKnots / v);
  lf_clampDue(ac, static_cast<std::int32_t>(std::max(ticks, 25.0)));
}

bool lf_extendStream(LiveAc& ac) {
  const bool taxi = ac.flightState == kTaxi && !ac.takingOff && !ac.rollout;
  if (ac.flightState == kPushedBack || taxi) {
    for (const LiveAc& o : gLiveAc) {
      if (o.onGround && o.flightState == kTaxi && o.simState == kActive && o.objectid != ac.objectid &&
          gf_distance({ac.lat, ac.lon}, {o.lat, o.lon}) <= (ac.hwsp + o.hwsp) * 1.2) {
        ac.holding = 0;
        ac.holdTick = 0;
        return false;
      }
    }
    if (ac.holding) {
      if (AIRBORNE_ONLY.value || (gv_tick - ac.holdTick) / 6000.0 > MAX_HOLDING_MINUTES.value) return false;
    } else {
      ac.holdTick = gv_tick;
    }
    ac.holding = 1;
    Sample s = ac.stream.front();
    s.tick += 300;
    s.gs = 0;
    s.stopped = 1;
    ac.stream.push_back(s);
    ac.extendCount = 1;
    return true;
  }
  if (ac.flightState == kParking) lf_arriveAtStand(ac);
  if (ac.extendCount < 0) return false;
  if (ac.extendCount == 1) {
    ac.extendCount = -1;
    return false;
  }
  if (ac.extendCount > 1) {
    lf_extendOnce(ac, ac.extendCount - 1);
    return true;
  }
  if (!lf_classWanted(ac.acClass)) return false;
  std::int32_t count = 0;
  if (!ac.onGround) {
    if (gf_userPositionKnown(gUserSnapshot) &&
        gf_distance({gUserSnapshot.lat, gUserSnapshot.lon}, {ac.lat, ac.lon}) >= gv_rangeNm.load(std::memory_order_relaxed) - kRangeMarginNm)
      return false;
    const double elevation = gParkAirportSite.chosen ? gParkAirportSite.elevationFt : 0.0;
    if (AIRBORNE_ONLY.value && std::fabs(ac.alt - elevation) < 1000) return false;
    count = 8;
  } else {
    count = ac.flightState == kParked ? 1 : 10;
  }
  lf_extendOnce(ac, count);
  return true;
}

void lf_extendOnce(LiveAc& ac, std::int32_t n) {
  ac.extendCount = n;
  Sample s = ac.stream.front();
  const double t = ac.onGround ? 3.0 : 8.0;
  if (s.stopped || ac.flightState == kParked) {
    s.stopped = 1;
    s.gs = 0;
  }
  double speed = 0;
  bool keepGs = false;
  if (!ac.onGround) {
    if (!ac.approach) {
      speed = std::max(s.gs * 0.95, 1.0);
    } else if (n < 4) {
      speed = s.gs;
      keepGs = true;
    } else {
      speed = std::max(s.gs * 0.9, 1.0);
    }
  } else if (!ac.rollout) {
    if (!ac.takingOff) {
      s.gs = 0;
      s.stopped = 1;
    } else {
      lf_takeOffRollSpeed(s, speed);
    }
  } else {
    s.vs = 0;
    speed = lf_rolloutSpeed(s.gs);
  }
  if (speed > 0) {
    if (!keepGs) s.gs = speed;
    const LatLon next = gf_destination(pos(s), ac.heading, t * 100.0 * speed * kFeetPerNm / kNmPerTickToKnots);
    s.stopped = gf_samePosition(next, pos(s)) ? 1 : 0;
    s.lat = next.lat;
    s.lon = next.lon;
  }
  if (ac.approach && ac.flareStage == 0) {
    s.vs = -667;
    s.alt -= t * 10.005;
  } else if (ac.flightState == kTakeOff) {
    s.vs = 1500;
    s.alt += t * 25.0;
  }
  if (s.alt < 0) s.alt = 0;
  s.airborne = s.alt > 0 ? 1 : 0;
  if (ac.flightState != kParked) {
    s.tick += static_cast<std::int32_t>(t * 100.0);
  } else {
    s.tick += kParkedLegTicks;
    ac.standConfirmed = 0;
    lf_clearLiveAtStand(ac.sid);
  }
  ac.stream.push_back(s);
}

}  // namespace orv
