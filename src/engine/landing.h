#pragma once
// The last seconds of a flight, flown against the simulator's own ground: the flare by
// height, the touch-down that the simulator reports, and the samples that a landing aircraft
// still takes.
#include "engine/live_aircraft.h"

namespace orv {

// Each tick while low on the approach and not yet on the ground.
void lf_flareStep(LiveAc& ac);
// Ground data of an object (notice kind 3): on-ground flag, ground altitude, height above ground.
void lf_onGroundData(LiveAc& ac, bool onGround, double groundAlt, double agl);
// A new sample while approaching or rolling out; false when it is dropped.
bool checkNewPosDuringLanding(LiveAc& ac, Sample& s);

}  // namespace orv
