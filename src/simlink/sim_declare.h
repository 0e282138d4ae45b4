#pragma once
// What the session tells the simulator once it is open: the system events it listens to,
// the data blocks it reads and writes, and the events it sends to AI aircraft.
#include "platform/simconnect/simconnect.h"

namespace orv {

// Subscribes the system events, adds every datum of every data definition in block order,
// maps the client events and puts them in their notification group.
void lf_declareToSim(HANDLE handle);

}  // namespace orv
