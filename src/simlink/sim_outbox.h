#pragma once
// The queues to the SimClient thread: events, creations and removals that other threads ask
// for, carried out at the next simulator frame (the positions come through gPositionOut).
// Each queue's mutex is a leaf; the client takes them while it holds gSimMutex.
#include <cstdint>

#include "engine/live_aircraft.h"
#include "foundation/hand_over_queue.h"

namespace orv {

inline HandOverQueue<EventOut> gEventOut;
inline HandOverQueue<AddRequest> gCreateOut;
inline HandOverQueue<std::uint32_t> gRemoveOut;  // object ids

}  // namespace orv
