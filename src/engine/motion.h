#pragma once
// The per-tick motion of a live aircraft between its samples: only the steps planned once
// per leg are added, with the take-off sequence and the folding of the position.
#include "engine/live_aircraft.h"

namespace orv {

// Each tick, unless stream[0] is stopped.
void lf_motionStep(LiveAc& ac);
// Longitude into -180..180; a latitude beyond a pole is reflected and the longitude turned
// half round.
void gf_foldPosition(double& lat, double& lon);
// A heading into 0..2π; a result above 2π becomes 0.
double gf_foldHeading(double heading);

}  // namespace orv
