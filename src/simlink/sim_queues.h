#pragma once
// The per-frame flush of the SimClient thread that carries out what the other threads queued:
// positions, events, creations and removals; and the engine's creations and removals.
#include <cstdint>

#include "engine/live_aircraft.h"
#include "simlink/sim_outbox.h"

namespace orv {

// Room for 256 entries in each command queue, so that running does not reallocate.
void gf_reserveSimQueues();
// Empties the events, creations and removals handed to the client.
void gf_clearSimQueues();

// SimClient thread, at each Frame record. Takes gSimMutex only if it is free: the work then
// waits for the next frame. After a failed request it throws all queued work away and sends
// nothing.
void lf_sendToSim();

// Run thread: the flight stopped running; both halves of the position buffer are thrown away.
void lf_discardPendingPositions();

// The engine's creations and removals, sent at the next frame.
void simQueueCreate(const AddRequest& request);
void simQueueRemove(std::uint32_t objectid);

}  // namespace orv
