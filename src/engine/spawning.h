#pragma once
// From the buffer into the simulator: the gates a buffered aircraft must pass when its first
// sample is due, the livery it is created with and the pose it starts in.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

// Each tick for a record in "buffer": waits, drops its head, erases it, or spawns it.
void lf_bufferStep(LiveAc& ac);
// The simulator's aircraft limit is reached: removes the active aircraft farthest from the
// user, if it lies more than 0.1 nm beyond `bound` (a negative bound: the farthest of all).
// False when one was removed, true when none was found.
bool lf_dropFarthest(double bound);
// Keeps a new aircraft away from the user: true when it is held (its head dropped, or itself
// removed).
bool lf_holdForUser(LiveAc& ac);
// Chooses the title and the first state, and hands the aircraft to the creations.
void spawnLiveAc(LiveAc& ac);
// Position, attitude and heading at creation, from the first samples.
void lf_initPose(LiveAc& ac);
// The present time in 100 ns units, as the parked time is kept.
std::int64_t lf_systemTicks();

}  // namespace orv
