#pragma once
// The one way to get rid of an aircraft, live or parked, in any simulator state.
#include <fmt/format.h>

#include <string>
#include <string_view>

#include "engine/live_aircraft.h"

namespace orv {

void removeAircraftFromSim(AcRecord& ac);
// The object leaves the simulator: the user stops following it and its removal is queued. An
// object id of 0 is a fault; `noObject` logs it with `label` and the callsign.
void gf_queueObjectRemoval(AcRecord& ac, fmt::format_string<std::string_view, const std::string&> noObject,
                           std::string_view label);

}  // namespace orv
