#include "engine/motion.h"

#include <algorithm>
#include <cmath>

#include "engine/ac_class.h"
#include "engine/ground_curve.h"
#include "engine/landing.h"
#include "engine/sim_port.h"

namespace orv {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kHalfDegree = 0.5 / kDegreesPerRadian;
constexpr double kFlarePitchFloor = -0.06981317007977318;  // -4 degrees
// Below this height above ground on the approach the flare stages are watched.
constexpr double kFlareHeight = 400;

void lf_turnToTarget(LiveAc& ac) {
  double d = ac.targetHeading - ac.heading;
  if (d > kPi) d -= kTwoPi;
  if (d < -kPi) d += kTwoPi;
  if (std::fabs(d) <= kHalfDegree) return;
  ac.heading = gf_foldHeading(ac.heading + (d > 0 ? ac.groundTurn : -ac.groundTurn));
}

// Rotation, unstick and the climb-out, counted down by stageCount from rotateTicks.
void lf_takeOffStep(LiveAc& ac) {
  const std::int32_t c = --ac.stageCount;
  if (c >= 1) {
    ac.onGround = 0;
    if (ac.pitch > ac.rotatePitch) ac.pitch += ac.stepPitch;
  } else {
    ac.bank = std::clamp(ac.bank + ac.stepBank, -kPi, kPi);
    if (ac.pitch > ac.climbPitch) ac.pitch += (ac.climbPitch - ac.rotatePitch) / ac.unstickTicks;
    if (c <= -1 && c >= -99)
      ac.alt += ac.stepAlt / 10;
    else if (c <= -100 && c >= -199)
      ac.alt += ac.stepAlt / 5;
    else if (c <= -200 && c >= -299)
      ac.alt += ac.stepAlt * 0.5;
    else if (c <= -300)
      ac.alt += ac.stepAlt;
    if (c == -300) gf_sim().setGear(ac, false);
    if (c < -300 && ac.pitch <= ac.climbPitch) {
      ac.stepPitch = 0;
      if (ac.agl >= 800) {
        gf_sim().setThrottle(ac, ac.acClass == kRotorcraft ? 4 : 3);
        gf_setFlightState(ac, kFlying);
        ac.stageCount = 1;
      }
    }
  }
  if (ac.stageCount < -1000) ac.stageCount = -1000;
}

}  // namespace

double gf_foldHeading(double heading) {
  double h = heading;
  if (h < 0)
    h += kTwoPi;
  else if (h > kTwoPi)
    h -= kTwoPi;
  if (h < 0 || h > kTwoPi) {  // more than a turn at once: not from a step
    h = std::fmod(heading, kTwoPi);
    if (h < 0) h += kTwoPi;
  }
  return h > 6.283185307178586 ? 0.0 : h;
}

void gf_foldPosition(double& lat, double& lon) {
  if (lat > 90.0 || lat < -90.0) {
    lat = lat > 0 ? 180.0 - lat : -180.0 - lat;
    lon += 180.0;
  }
  if (lon > 180.0 || lon < -180.0) lon = std::remainder(lon, 360.0);
}

void lf_motionStep(LiveAc& ac) {
  if (lf_curveInForce(ac)) {
    lf_followCurve(ac);
  } else {
    switch (ac.flightState) {
      case kTaxi:
      case kPushingBack:
      case kPushedBack:
        if (ac.sharpTurn) lf_turnToTarget(ac);
        break;
      case kParking:
        lf_turnToTarget(ac);
        break;
      default:
        ac.heading = gf_foldHeading(ac.heading + ac.stepHeading);
        break;
    }
    if (ac.flightState != kPushedBack) {
      ac.lat += ac.stepLat;
      ac.lon += ac.stepLon;
    }
  }
  if (ac.flightState != kTakeOff && ac.agl <= kFlareHeight && ac.approach && !ac.onGround) lf_flareStep(ac);
  if (ac.flightState == kTakeOff) {
    lf_takeOffStep(ac);
  } else if (ac.derotating) {
    ac.pitch += ac.stepPitch;
    // Reaching the static pitch ends it too: a touch-down before the flare has no pitch to lower.
    if (ac.pitch >= ac.staticPitch) {
      ac.pitch = ac.staticPitch;
      ac.stepPitch = ac.bank = ac.stepBank = 0;
      ac.derotating = 0;
      ac.flareStage = 0;
    }
    ac.bank += ac.stepBank;
  } else if (ac.flareStage == 0) {
    if (ac.onGround) {
      ac.pitch = ac.staticPitch;
      ac.bank = 0;
    } else {
      ac.bank += ac.stepBank;
      ac.pitch += ac.stepPitch;
      ac.alt += ac.stepAlt;
    }
  } else {
    ac.bank = std::clamp(ac.bank + ac.stepBank, -kPi, kPi);
    ac.pitch = std::max(ac.pitch + ac.stepPitch, kFlarePitchFloor);
    ac.alt += ac.stepAlt;
  }
  gf_foldPosition(ac.lat, ac.lon);
}

}  // namespace orv
