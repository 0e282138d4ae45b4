#pragma once
// Parking adjustments: the park airport's static aircraft kept in step with the time of the
// week and held to Max park.

namespace orv {

// The periodic parking step of the seconds work.
void lf_periodicParking();
// The second phase of an announced static update: brings the static aircraft up to date.
void lf_adjustParking();
// Removes every static aircraft from the simulator.
void lf_removeAllStatic();
// Whether there is a park airport to fill at all.
bool lf_parkingPossible();
// Tells the user that static parking will be updated shortly and starts the update's phases.
void lf_announceStaticUpdate();
// Leaves the park airport, at closing down.
void lf_clearParkAirport();

}  // namespace orv
