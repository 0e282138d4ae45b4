#pragma once
// The planning of a leg in the air, once per leg: altitude, pitch, heading and bank steps
// that carry the aircraft to the next sample, and the configuration for its height.
#include "engine/live_aircraft.h"

namespace orv {

// The pitch that a vertical speed calls for, in radians (negative is nose up): -3 degrees
// less 2.2 degrees per 600 ft/min, a descent counting half and down to -3000, a climb up to 2400.
double gf_targetPitch(double vs);
// Once per leg, when not on the ground.
void lf_airStep(LiveAc& ac);
// The descent when the reports stop following it, corrected by the QNH.
double lf_descentRate(const LiveAc& ac);
// Reports "on the ground" while the aircraft climbs: the leg goes to the i-th sample (counted
// from 1) when that is airborne. True when it was taken.
bool lf_reachForClimb(LiveAc& ac, std::size_t i);

}  // namespace orv
