#pragma once
// The engine's side of the feed: decoded traffic messages become live aircraft records or
// new samples of the records that exist.
#include "engine/live_aircraft.h"

namespace orv {

// Takes at most two messages of gTrafficQueue: at most 200 a second.
void lf_takeTrafficMessages();
// One message: a new hexid becomes a record in "buffer"; a known one gains a sample.
void lf_decodeMsg(TrafficMsg&& msg);

}  // namespace orv
