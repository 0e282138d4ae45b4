#include "engine/air_leg.h"

#include <algorithm>
#include <cmath>

#include "engine/ac_class.h"
#include "engine/air_config.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/park_airport_site.h"
#include "engine/position_stream.h"
#include "engine/qnh.h"
#include "engine/sim_port.h"

namespace orv {
namespace {

constexpr double kRadPerDeg = 1.0 / kDegreesPerRadian;
constexpr double kFtPerMinToFtPerTick = 1.0 / 6000.0;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }

// The reports' vertical speed is replaced by a planned one.
void lf_planVs(LiveAc& ac, double v) {
  ac.stream[1].vs = v;
  ac.vsNow = v;
  ac.stepAlt = v * kFtPerMinToFtPerTick;
}

double lf_sumVs(const LiveAc& ac) {
  double sum = 0;
  for (const Sample& s : ac.stream) sum += s.vs;
  return sum;
}

// The altitude step of the leg; the gear goes down when the leg ends on the ground.
void lf_planAltitude(LiveAc& ac) {
  const Sample& s0 = ac.stream[0];
  const Sample& s1 = ac.stream[1];
  const double dv = lf_legTicks(ac);
  if (s0.airborne && s1.airborne) {
    if (!ac.approach) {
      const double r = (s1.alt - ac.alt) / dv;
      // Low over the ground an aircraft keeps climbing.
      ac.stepAlt = ac.agl > 1000 ? std::min(r, ac.maxClimbStep) : std::min(ac.maxClimbStep, std::max(r, 0.2));
    } else if (s0.alt == s1.alt && ac.agl <= 1000 && s0.vs + s1.vs <= 100) {
      lf_planVs(ac, lf_descentRate(ac));  // the reports stopped following the descent
    } else {
      ac.stepAlt = (s1.alt - ac.alt) / dv;
    }
    return;
  }
  if (s0.airborne) {
    const std::int32_t qnh = gv_qnh.load(std::memory_order_relaxed);
    if (qnh <= 1013 && gParkAirportSite.chosen)
      ac.stepAlt = (gParkAirportSite.elevationFt - ac.alt) / dv;
    else
      lf_planVs(ac, qnh > 1013 ? lf_descentRate(ac) : -601.0);
    gf_sim().setGear(ac, true);
    return;
  }
  if (s1.airborne) {
    ac.stepAlt = s1.alt > ac.alt ? std::min((s1.alt - ac.alt) / dv, ac.maxClimbStep) : 0.0;
    return;
  }
  if (!ac.approach && lf_sumVs(ac) > 100) {
    bool reached = false;
    const std::size_t last = std::min<std::size_t>(ac.stream.size() - 1, 10);
    for (std::size_t i = 3; i <= last && !reached; ++i) reached = lf_reachForClimb(ac, i);
    if (!reached) lf_planVs(ac, std::max(ac.stream[1].vs, 601.0));
  } else {
    lf_planVs(ac, lf_descentRate(ac));
  }
  gf_sim().setGear(ac, true);
}

}  // namespace

double gf_targetPitch(double vs) {
  const double v = vs < 0 ? std::max(vs, -3000.0) * 0.5 : std::min(vs, 2400.0);
  return (-3.0 - (v / 600.0) * 2.2) * kRadPerDeg;
}

double lf_descentRate(const LiveAc& ac) {
  if (ac.agl <= 100) return -600.0;
  const double qnh = gv_qnh.load(std::memory_order_relaxed);
  return std::min((ac.stream[0].vs + ac.stream[1].vs) / 2 - (qnh - 1013.25) * 6.0, -601.0);
}

bool lf_reachForClimb(LiveAc& ac, std::size_t i) {
  auto& st = ac.stream;
  if (st.size() < i || !st[i - 1].airborne) return false;
  for (std::size_t done = 0; done < i - 2 && st.size() > 2; ++done) st.erase(st.begin() + 1);
  const double v = lf_meanSpeed(ac);
  const double ticks = std::round(gf_distance(pos(st[0]), pos(st[1])) * 360000.0 / v);
  lf_clampDue(ac, static_cast<std::int32_t>(std::max(ticks, 25.0)));
  lf_positionSteps(ac);  // the leg now ends at the climbing sample
  const double dv = lf_legTicks(ac);
  ac.stepAlt = st[1].alt > ac.alt ? std::min((st[1].alt - ac.alt) / dv, ac.maxClimbStep) : 0.0;
  return true;
}

void lf_airStep(LiveAc& ac) {
  if (ac.flightState != kTakeOff && ac.flightState != kFlying) gf_setFlightState(ac, kFlying);
  ac.speedNow = ac.stream[1].tas;
  ac.vsNow = ac.stream[1].vs;
  if (ac.flareStage == 0) lf_planAltitude(ac);

  const AcClassTable& t = gf_classTable(ac.acClass);
  const Sample& s0 = ac.stream[0];
  const Sample& s1 = ac.stream[1];
  const double dv = lf_legTicks(ac);
  if (ac.flightState != kTakeOff) {
    const double limit = t.pitchStepDeg * kRadPerDeg;
    ac.stepPitch = std::clamp((gf_targetPitch(s1.vs) - ac.pitch) / dv, -limit, limit);
  }
  double d = 0;
  if (s1.precise && s1.roll && s1.trueHeading && ac.agl < (ac.approach ? 2000 : 1000))
    d = gf_normAngle(s1.trueHeading.value - ac.heading);
  else if (ac.stream.size() >= 3)
    d = gf_normAngle(gf_bearing(pos(s1), pos(ac.stream[2])) - ac.heading);
  ac.stepHeading = d / dv;
  if (s1.roll) {
    ac.stepBank = (s1.roll.value - ac.bank) / dv;
  } else {
    const double maxBank = t.maxBankDeg * kRadPerDeg;
    const double limit = t.bankStepDeg * kRadPerDeg;
    ac.stepBank = std::clamp((std::clamp(-d, -maxBank, maxBank) - ac.bank) / dv, -limit, limit);
  }
  if (s0.alt < 10000)
    lf_lowConfig(ac);
  else
    lf_cruiseConfig(ac);
}

}  // namespace orv
