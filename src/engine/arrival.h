#pragma once
// Landing and arrival at a stand. Until it is built, a parked aircraft keeps the lights and
// levers it was created with, a new sample never starts an arrival, and the stream of an
// aircraft that drives onto a stand simply ends.
#include "engine/live_aircraft.h"

namespace orv {

// Parked configuration of lights and levers.
void lf_parkedConfig(AcRecord& ac);
// A new sample of an active aircraft: the situations of the arrival that change the stream.
// False when the sample is not to be appended.
bool checkExtendingSituations(LiveAc& ac, Sample& s);
// The stream of an aircraft that drives onto its stand ran out.
void lf_arriveAtStand(LiveAc& ac);
// Ground data of an object (notice kind 3): on-ground flag, ground altitude, height above ground.
void lf_onGroundData(LiveAc& ac, bool onGround, double groundAlt, double agl);

}  // namespace orv
