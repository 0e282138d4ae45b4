#pragma once
// Taxi corners as quadratic Bézier curves in a flat frame in metres around the curve's first
// point, and the splitting of ground legs where the speed changes.
#include "engine/live_aircraft.h"

namespace orv {

// No curve in force.
void lf_clearCurve(LiveAc& ac);
bool lf_curveInForce(const LiveAc& ac);
// The point and the heading of the curve at t; false (nothing written) when the curve isn't
// whole or t lies outside it.
bool lf_evalCurve(const LiveAc& ac, double t, double& lat, double& lon, double& heading);
// One tick along the curve in force.
void lf_followCurve(LiveAc& ac);
// A curve from the present position over stream[1] to stream[2]; stream[1] goes.
void lf_buildCurve(LiveAc& ac);
// A sample in the middle of the first leg, in second place.
void lf_splitLeg(LiveAc& ac);
// The first leg is split when its speed changes by more than 5 knots over 100 m or more.
bool lf_speedSplitWanted(const LiveAc& ac);
void lf_splitOnSpeed(LiveAc& ac);

}  // namespace orv
