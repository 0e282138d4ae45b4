#pragma once
// How the subsystems, which cannot name the window, reach it: the program connects their
// hooks to the functions here at start-up.
#include "foundation/shown_value.h"
#include "platform/window/window_layer.h"

namespace orv {

// The window's band that shows a value of a band.
Band lf_windowBand(ShownBand band);

// Connects foundation's hooks: shown values repaint their band, the message area asks the
// window's thread to paint it, and a parameter read shows its values on the controls. Once at
// start-up, before any thread that publishes starts.
void lf_connectWindowHooks();

// The simulator switch on the controls: both scan boxes ticked, the install path cleared, and
// SIM_CHOICE refilled with its value. Posted to the window's thread, as the switch is found on
// the SimClient thread, which must not move controls.
void lf_postSimulatorSwitchDisplay();

}  // namespace orv
