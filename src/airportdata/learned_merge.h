#pragma once
// Laying one stand of a learned file over the stand of the archived file: its radius and cargo
// changes, and the options that the archived file does not know yet.
#include <pugixml.hpp>

#include <string_view>

#include "airportdata/stands.h"

namespace orv {

// False when id is not the stand's id. With clearFlights (a learned file of an older kind)
// only the radius and cargo changes are taken.
bool mergeLearnedStand(Stand& stand, pugi::xml_node parkpos, std::string_view id, bool clearFlights);

}  // namespace orv
