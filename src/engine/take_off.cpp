#include "engine/take_off.h"

#include <algorithm>

#include "engine/ac_class.h"
#include "engine/ground_curve.h"
#include "engine/ground_motion.h"
#include "engine/position_stream.h"
#include "engine/sim_port.h"
#include "foundation/log.h"

namespace orv {
namespace {

// Reports climbing faster than this count as the aircraft lifting off.
constexpr double kLiftOffVs = 256;
// Below this speed of the first sample the roll isn't tested for rotation.
constexpr double kRollTestSpeed = 43;

}  // namespace

void lf_prepareTakeOff(LiveAc& ac) {
  if (ac.towed) gf_logError("towed aircraft takes-off? {}", ac.cs);
  ac.takingOff = 1;
  gf_sim().setThrottle(ac, 0);
  gf_sim().setSpoilers(ac, false);
  gf_sim().setFlaps(ac, 1);
  ac.approach = ac.justLanded = ac.cleanConfig = 0;
  gf_sim().setLights(ac.objectid, true, true, true, true, true, true, false);
  lf_widenDueLimits(ac);
}

std::int32_t lf_rollThrottle(const LiveAc& ac) {
  if (ac.acClass == kRotorcraft) return 4;
  const double v0 = ac.stream[0].gs, v1 = ac.stream[1].gs;
  if (v0 >= 25 || v1 >= 30) return 4;
  if (v0 >= 20 || v1 >= 25) return 2;
  if (v0 >= 15 || v1 >= 20) return 1;
  return 0;
}

void lf_takeOffTest(LiveAc& ac, double dv) {
  if (!ac.takingOff || ac.flightState == kTakeOff || ac.stream[0].gs < kRollTestSpeed) return;
  const auto& st = ac.stream;
  const auto behind = [&](auto pred) {
    for (std::size_t i = 1; i < st.size(); ++i)
      if (pred(st[i])) return true;
    return false;
  };
  if (behind([](const Sample& s) { return s.vs <= kLiftOffVs; })) {
    // Level reports: only a take-off speed in every one of them, all in the air, lifts it off.
    const double vr = gf_classTable(ac.acClass).takeOffSpeed;
    if (behind([&](const Sample& s) { return s.gs < vr || !s.airborne; })) return;
    ac.stepAlt = ac.maxClimbStep;
  } else {
    const bool allAirborne = !behind([](const Sample& s) { return !s.airborne; });
    ac.stepAlt = allAirborne ? std::max(st[1].alt - ac.alt, 0.1) / dv : ac.maxClimbStep;
  }
  lf_startRotation(ac);
}

void lf_startRotation(LiveAc& ac) {
  ac.stageCount = static_cast<std::int32_t>(std::max<std::uint32_t>(ac.rotateTicks, 1));
  ac.bank = ac.stepHeading = ac.stepBank = 0;
  ac.stepPitch = (ac.rotatePitch - ac.pitch) / ac.stageCount;
  if (!ac.takingOff) lf_prepareTakeOff(ac);
  gf_setFlightState(ac, kTakeOff);
  ac.stepHeading = 0;
  lf_clearCurve(ac);
  if (ac.rollout) {
    // A take-off from a roll-out: the landing is abandoned.
    ac.rollout = ac.approach = ac.justLanded = 0;
    gf_sim().setThrottle(ac, 4);
    gf_sim().setSpoilers(ac, true);
    gf_sim().setFlaps(ac, 1);
  }
}

}  // namespace orv
