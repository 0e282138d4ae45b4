#pragma once
// The take-off roll on the ground: throttle by speed and the moment of rotation.
#include "engine/live_aircraft.h"

namespace orv {

// The throttle index of the roll, by the speeds of the leg.
std::int32_t lf_rollThrottle(const LiveAc& ac);
// Rotates when the samples behind the first show the aircraft flying; dv is the leg's ticks.
void lf_takeOffTest(LiveAc& ac, double dv);
// Ends the ground roll: the nose rises over rotateTicks.
void lf_startRotation(LiveAc& ac);

}  // namespace orv
