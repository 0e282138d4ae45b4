#pragma once
// The motion of a live aircraft between its samples, in the air and on the ground. Until it is
// built, the aircraft is shown at the sample last reached.
#include "engine/live_aircraft.h"

namespace orv {

void lf_motionStep(LiveAc& ac);

}  // namespace orv
