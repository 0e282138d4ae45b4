#pragma once
// Lights, flaps, gear and throttle of an aircraft in the air, by its height and vertical
// speed: the cruise set above 10000 ft, the low set below, the approach near the park airport
// and the go-around.
#include "engine/live_aircraft.h"

namespace orv {

// Above 10000 ft, once per crossing.
void lf_cruiseConfig(LiveAc& ac);
// Below 10000 ft, each leg.
void lf_lowConfig(LiveAc& ac);
// Low over the ground: the approach near the park airport, or the go-around.
void lf_approachConfig(LiveAc& ac);

}  // namespace orv
