#pragma once
// The first legs off a stand: pulling out forwards, or pushing back tail first and turning
// the nose to the side that the feed shows.
#include "engine/live_aircraft.h"

namespace orv {

// Forwards along the stand's heading, two half wingspans.
void lf_pullOut(LiveAc& ac);
// Tail first along the stand's axis, 2.5 stand radii, then to either side.
void lf_pushBack(LiveAc& ac);

}  // namespace orv
