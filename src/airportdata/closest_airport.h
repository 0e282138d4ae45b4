#pragma once
// At which catalogue airport a position on the ground lies: the nearest within 5 nautical
// miles, unless a stand of the airport nearest before it lies closer.
#include <string>
#include <string_view>

#include "airportdata/airport_catalogue.h"

namespace orv {

// Nullptr when no catalogue airport lies within 5 nautical miles.
const RtAirport* closestAirport(double latitude, double longitude);

// Distance in nautical miles from the position to the nearest stand in the airport's file,
// whose id goes to standOut; 100.0 when it cannot be told.
double gf_readDestApfForClosestStand(std::string_view icao, double latitude, double longitude, std::string& standOut);

}  // namespace orv
