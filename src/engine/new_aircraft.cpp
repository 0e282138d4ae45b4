#include "engine/new_aircraft.h"

#include "engine/ac_class.h"
#include "foundation/random.h"

namespace orv {
namespace {

// The class value, made larger or smaller by `fraction`, the sign at random.
double randomised(double value, double fraction) { return value * (1.0 + (gf_randomIndex(2) == 0 ? fraction : -fraction)); }

}  // namespace

LiveAc gf_makeLiveAc(TrafficMsg&& msg, std::int32_t acClass, double hwsp) {
  const AcClassTable& t = gf_classTable(acClass);
  LiveAc ac;
  static_cast<AcIdent&>(ac) = std::move(msg.ident);
  ac.cs1 = ac.cs;
  ac.cs2.clear();
  ac.routeLooked = 0;
  ac.hwsp = hwsp;
  ac.acClass = acClass;
  ac.hexid = msg.hexid;
  ac.rotatePitch = randomised(t.rotatePitchDeg, 0.025) / kDegreesPerRadian;
  ac.climbPitch = randomised(t.climbPitchDeg, 0.05) / kDegreesPerRadian;
  ac.turnRate = t.turnRateDegPerTick / kDegreesPerRadian;
  ac.maxClimbStep = t.maxClimbStep;
  ac.taxiSpeed = t.taxiSpeed;
  ac.flareTicks = t.flareTicks;
  ac.derotateTicks = t.derotateTicks;
  ac.rotateTicks = t.rotateTicks;
  ac.unstickTicks = t.unstickTicks;
  ac.lastTimestamp = msg.timestamp;
  ac.stream.push_back(msg.sample);
  return ac;
}

}  // namespace orv
