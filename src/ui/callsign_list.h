#pragma once
// The list of live callsigns in the combo box that picks the aircraft to follow.

namespace orv {

// Fills the combo box with the callsigns of the live aircraft in the simulator.
void lf_fillCallsignList();

}  // namespace orv
