#pragma once
// How the subsystems, which cannot name the window, reach it: the program connects their
// hooks to the functions here at start-up.
#include "foundation/shown_value.h"
#include "platform/window/window_layer.h"

namespace orv {

// Connects the hooks by which the subsystems reach the window: shown values repaint their band,
// the message area asks the window's thread to paint it, a parameter read shows its values on
// the controls, and the simulator switch posts its control work (scan boxes, install path,
// SIM_CHOICE) to the window's thread, as it is found on the SimClient thread, which must not
// move controls; so does the livery catalogue with the boxes of the traffic classes it has
// liveries for. Once at start-up, before any thread that publishes starts.
void lf_connectWindowHooks();

}  // namespace orv
