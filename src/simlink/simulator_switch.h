#pragma once
// A change of simulator between MSFS 2020 and MSFS 2024: chosen on the window, or found
// because the other one connected. The liveries and airports differ, so the next run
// scans them again.
#include "foundation/hook.h"

namespace orv {

// Shows a switch on the window's controls. The program binds it to a function that hands that
// work to the window's thread: the switch is found on the SimClient thread, which must not move
// controls. Unbound, the switch shows nothing.
inline constinit Hook<> lf_showSimulatorSwitch;

// The restart for a new simulator: the livery catalogue goes, both scans are asked for,
// the install path is cleared, and the run ends with NEW SETTINGS (3 seconds).
void lf_switchSimulator();

// The SimClient thread found the other simulator: SIM_CHOICE becomes that one, saved and
// shown, then the restart above. Nothing while the run is already stopping.
void lf_switchToConnectedSimulator();

}  // namespace orv
