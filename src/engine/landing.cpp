#include "engine/landing.h"

#include <algorithm>
#include <cmath>

#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/park_airport_site.h"
#include "engine/position_stream.h"
#include "engine/sim_port.h"
#include "foundation/log.h"

namespace orv {
namespace {

constexpr double kFlarePitch = -4.0 / kDegreesPerRadian;
// A report this far off the heading lies behind the aircraft.
constexpr double kBehindApproachDeg = 90.0;
constexpr double kBehindRolloutDeg = 150.0;
// A landing aircraft may be reported faster than this; it doesn't speed up beyond it.
constexpr double kNoSpeedUpKnots = 40.0;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }

double lf_turnDeg(const LiveAc& ac, const Sample& from, const Sample& to) {
  return std::fabs(gf_normAngle(gf_bearing(pos(from), pos(to)) - ac.heading)) * kDegreesPerRadian;
}

// One stage of the flare: a gentler sink, which the simulator is told as well.
void lf_flareStage(LiveAc& ac, double stepAlt, double vs) {
  ac.stepAlt = stepAlt;
  ac.stream[0].vs = vs;
  ac.vsNow = vs;
  ac.outVs = vs / 60.0;
  ++ac.flareStage;
}

void lf_touchDown(LiveAc& ac) {
  ac.derotating = ac.rollout = 1;
  ac.touchdownHeading = ac.heading;
  ac.approach = 0;
  ac.justLanded = 1;
  gf_sim().setSpoilers(ac, true);
  if (ac.acClass != kLight) {
    const double lever = ac.reverser ? -100.0 : 100.0;
    gf_sim().setLevers(ac.objectid, 100, lever, lever);
  }
  ac.stepBank = -ac.bank / ac.derotateTicks;
  ac.stepPitch = (ac.staticPitch - ac.pitch) / ac.derotateTicks;
  gRouteQueue.push_back(ac.hexid);
}

}  // namespace

void lf_flareStep(LiveAc& ac) {
  const double cg = ac.cgHeight;
  switch (ac.flareStage) {
    case 0: {
      if (!ac.groundElev && gParkAirportSite.chosen) ac.groundElev.set(gParkAirportSite.elevationFt);
      ac.heightAtAirport = ac.groundElev ? ac.alt - ac.groundElev.value : ac.agl;
      // The simulator's ground or the airport's, whichever comes first.
      if (std::min(ac.agl, ac.heightAtAirport) <= cg + 30) {
        lf_flareStage(ac, -0.1, -601);
        ac.stepPitch = (kFlarePitch - ac.pitch) / ac.flareTicks;
      }
      break;
    }
    case 1:
      if (ac.agl <= cg + 20) {
        lf_flareStage(ac, -0.075, -450);
        ac.groundElev.reset();
      }
      break;
    case 2:
      if (ac.agl <= cg + 10) {
        lf_flareStage(ac, -0.05, -300);
        ac.groundElev.reset();
        gf_sim().setThrottle(ac, 0);
      }
      break;
    case 3:
      if (ac.agl <= cg + 3) {
        lf_flareStage(ac, -0.025, -150);
        ac.groundElev.reset();
      }
      break;
    default: break;
  }
}

void lf_onGroundData(LiveAc& ac, bool onGround, double groundAlt, double agl) {
  // A rotating aircraft may touch the ground; that isn't a landing.
  if (onGround && !ac.onGround && ac.stageCount <= 1 && ac.simState != kRemovingFromSim && ac.flightState != kTakeOff) {
    if (ac.flareStage != 0 || ac.approach) lf_touchDown(ac);
    ac.onGround = 1;
    ac.stepAlt = 0;
    ac.stageCount = 1;
  }
  ac.agl = agl;
  // From here on the aircraft sits on the simulator's ground, whatever the reports say.
  if (ac.onGround || ac.stageCount >= 2) ac.alt = groundAlt + ac.cgHeight;
}

bool checkNewPosDuringLanding(LiveAc& ac, Sample& s) {
  auto& st = ac.stream;
  if (st.empty()) {
    gf_logError("{} empty sz?", "checkNewPosDuringLanding");
    return false;
  }
  if (gf_samePosition(pos(s), pos(st.back()))) return false;
  if (st.size() == 1) {
    const double a = lf_turnDeg(ac, st[0], s);
    if (ac.approach) {
      if (a >= kBehindApproachDeg) return false;
    } else if (a >= kBehindRolloutDeg) {
      if (ac.extendCount > 0) return false;
      // The aircraft rolled past the report: the leg starts again from where it is.
      Sample here = st[0];
      here.lat = ac.lat;
      here.lon = ac.lon;
      here.tick = gv_tick + 1;
      st.clear();
      st.push_back(here);
    }
  } else {
    if (lf_turnDeg(ac, st.back(), s) >= kBehindApproachDeg) {
      st.resize(st.size() - 1);
      if (st.size() >= 2 && lf_turnDeg(ac, st.back(), s) >= kBehindApproachDeg) st.resize(st.size() - 1);
    }
  }
  if (ac.extendCount > 0) {
    ac.extendCount = 0;
    lf_widenDueLimits(ac);
  }
  if (gf_samePosition(pos(s), pos(st.back()))) {
    s.stopped = 1;
    return true;
  }
  s.stopped = 0;
  if (s.gs > st.back().gs && s.gs > kNoSpeedUpKnots) s.gs = st.back().gs;
  return true;
}

}  // namespace orv
