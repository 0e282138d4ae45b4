#pragma once
// The command queues between the engine and the SimClient thread, and the per-frame flush
// that carries them out: positions, events, creations and removals. The engine appends
// under gSimMutex at any time; the SimClient thread empties everything once per frame.
#include <cstdint>
#include <vector>

#include "engine/live_aircraft.h"

namespace orv {

// Under gSimMutex.
inline std::vector<AddRequest> gCreateOut;
inline std::vector<std::uint32_t> gRemoveOut;  // object ids

// Room for 256 entries in each command queue, so that running does not reallocate.
void gf_reserveSimQueues();
// Empties the creations and removals handed to the client.
void gf_clearSimQueues();

// SimClient thread, at each Frame record. Takes gSimMutex only if it is free: the work then
// waits for the next frame rather than for the engine. After a failed request it throws all
// queued work away and sends nothing.
void lf_sendToSim();

// The flight stopped running: both halves of the position buffer are thrown away.
void lf_discardPendingPositions();

}  // namespace orv
