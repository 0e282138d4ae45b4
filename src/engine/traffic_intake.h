#pragma once
// The engine's side of the feed: decoded traffic messages become live aircraft records or
// new samples of the records that exist.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

// Takes at most two messages of gTrafficQueue: at most 200 a second.
void lf_takeTrafficMessages();
// One message: a new hexid becomes a record in "buffer"; a known one gains a sample, unless
// the message is noise, redundant or of an aircraft that isn't taken.
void lf_decodeMsg(TrafficMsg&& msg);
// A new hexid: the record in "buffer", if its model is valid and its class wanted.
void lf_newAircraft(TrafficMsg&& msg);
// The user wants aircraft of this class: Light, HighPerf and Rotorcraft each by their option.
bool lf_classWanted(std::int32_t acClass);
// A height within 108 ft of the park airport's elevation below 10000 ft: such a report of an
// aircraft on the ground there isn't taken as airborne.
bool lf_atParkAirportHeight(double alt);

}  // namespace orv
