#pragma once
// Who a live aircraft is, as new reports tell it: route, registration and callsign, and the
// livery that a change of them calls for.
#include <cstdint>
#include <string_view>

#include "engine/live_aircraft.h"

namespace orv {

// Takes the identity of a message into the record. False when the message goes no further:
// a ghost's callsign whose owner is live, or a respawn for a new livery.
bool lf_updateIdent(LiveAc& ac, TrafficMsg& msg);
// The livery no longer fits: the remembered title is forgotten and the aircraft is born anew.
void lf_invalidateLivery(LiveAc& ac);
// Removes the object so that it is created again, at its present place, with another title.
void liveryRespawn(LiveAc& ac);
// The airline of a callsign of three letters and a digit or more ("DLH4AB"), in upper case;
// 0 when the callsign has no such form.
std::uint16_t gf_callsignAirline(std::string_view cs);

}  // namespace orv
