#pragma once
// Static parking: the aircraft that fit this moment of the week, placed on the stands of the
// park airport.

namespace orv {

// Calculates the static aircraft of the park airport once its file is loaded, and ends the
// wait that the load began.
void lf_calcStaticParking();

}  // namespace orv
