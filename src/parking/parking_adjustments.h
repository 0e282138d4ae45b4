#pragma once
// Parking adjustments: the park airport's static aircraft kept in step with the time of the
// week and held to Max park.

namespace orv {

// The second phase of an announced static update: brings the static aircraft up to date, when
// a park airport with stands is set.
void lf_adjustParking();
// Removes every static aircraft from the simulator.
void lf_removeAllStatic();
// Whether there is a park airport to fill at all: what the window shows as parkingPossible.
bool lf_parkingPossible();

}  // namespace orv
