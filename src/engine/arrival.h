#pragma once
// Landing and arrival at a stand. Until it is built, a parked aircraft keeps the lights and
// levers it was created with.
#include "engine/live_aircraft.h"

namespace orv {

// Parked configuration of lights and levers.
void lf_parkedConfig(AcRecord& ac);

}  // namespace orv
