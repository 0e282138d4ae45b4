#pragma once
// The park airports of airports/my_park_airports.txt, the one among them in sight, and the
// feed range that follows the situation.
#include <string>

namespace orv {

// Reads airports/my_park_airports.txt and the user's add-on airports into the list.
void lf_readMyParkAirports();
// The "Re-read" request: reads the list again. What changed in it, for the message area;
// empty when nothing did.
std::string lf_rereadMyParkAirports();
// Sets the feed range from the user's height and the park airport.
void computeAutoRange();
// At start-up: the stored DESTINATION, when the catalogue knows it, goes to the head of the list.
void lf_lookUpDestination();

}  // namespace orv
