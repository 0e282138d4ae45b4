#pragma once
// Static parking: the aircraft that fit this moment of the week, placed on the stands of the
// park airport.

namespace orv {

// The first parking of a run; atStart is true when the main loop begins.
void lf_firstParking(bool atStart);

}  // namespace orv
