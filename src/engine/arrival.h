#pragma once
// Arrival at a stand and leaving it again: which reports of a standing or pushing aircraft are
// taken, when it is parked, when it leaves, and how a parked aircraft is lit.
#include "engine/live_aircraft.h"

namespace orv {

// Parked configuration of lights and levers.
void lf_parkedConfig(AcRecord& ac);
// A new sample of an active aircraft: the situations of the arrival that change the stream.
// False when the sample is not to be appended.
bool checkExtendingSituations(LiveAc& ac, Sample& s);
// The reports of a parked aircraft move away from its stand.
void lf_leaveStand(LiveAc& ac, Sample& s);
// The stream of an aircraft that drives onto its stand ran out.
void lf_arriveAtStand(LiveAc& ac);

}  // namespace orv
