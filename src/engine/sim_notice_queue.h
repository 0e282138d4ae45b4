#pragma once
// What the SimClient thread tells the engine: created, refused and removed objects, their
// ground and static data. Its mutex (gNoticeMutex) is a leaf.
#include "engine/live_aircraft.h"
#include "foundation/hand_over_queue.h"

namespace orv {

inline HandOverQueue<SimNotice> gSimNotices;

}  // namespace orv
