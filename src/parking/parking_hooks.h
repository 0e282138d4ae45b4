#pragma once
// What airport parking asks of the layers above it, which it must not name: the window's
// controls and the feed's view of the park airport. The program binds them; unbound, a call
// does nothing.
#include "foundation/hook.h"

namespace orv {

// The park airport's file is about to be loaded: the controls that steer parking are blocked,
// the feed collects live callsigns and, when not at the start of a run, the user is told.
inline constinit Hook<bool> gv_enterParkingWait;
// The load and the calculation that follow it are over: the controls are free again.
inline constinit Hook<> gv_endParkingWait;
// The "Re-read" button may be used again.
inline constinit Hook<> gv_enableReread;
// The park airport (gParkAirportSite) was chosen, loaded or cleared: the feed decodes ground
// reports around it from now on.
inline constinit Hook<> gv_parkAirportChanged;

}  // namespace orv
