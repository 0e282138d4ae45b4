#pragma once
// Spawning and the position stream of a live aircraft. Until they are built: a record in
// "buffer" waits, and the stream only passes the samples that are due.
#include "engine/live_aircraft.h"

namespace orv {

// A record in "buffer" collects samples until the gates let it be created.
void lf_bufferStep(LiveAc& ac);
// Planning: passes the samples that are due, so that stream[0] is the one last reached.
void nextPosMain(LiveAc& ac);

}  // namespace orv
