#pragma once
// The one way to get rid of an aircraft, live or parked, in any simulator state.
#include "engine/live_aircraft.h"

namespace orv {

void removeAircraftFromSim(AcRecord& ac);

}  // namespace orv
