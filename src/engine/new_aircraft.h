#pragma once
// A live aircraft is born from its first traffic message.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

// The record of a new live aircraft in "buffer", with the values of its class (the two
// target pitches drawn at random a fixed percentage above or below the class value) and
// the message's sample as the first of its stream. The message's strings are moved.
LiveAc gf_makeLiveAc(TrafficMsg&& msg, std::int32_t acClass, double hwsp);

}  // namespace orv
