#pragma once
// The user's list of park airports (airports/my_park_airports.txt with the add-on airports),
// nearest first, and the feed range that follows the situation.
#include <list>
#include <string>
#include <string_view>

#include "foundation/fixed_code.h"

namespace orv {

struct ParkAirportEntry {
  std::string stand;  // the reserved stand, may be empty
  double latitude = 0, longitude = 0;
  double distance = 0;  // nautical miles from the user at the last sort
  FixedCode<4> icao;
};

// Nearest first; the head is the airport that the sight rules look at. Run thread only.
inline std::list<ParkAirportEntry> gParkAirports;

// The list file, relative to the working folder.
inline constexpr std::string_view kMyParkAirportsFile = "airports\\my_park_airports.txt";

// Reads the file and the user's add-on airports into the list; false when an airport was
// unknown or the reading failed.
bool lf_readMyParkAirports();
// Writes the head entry into the file: replaced in place, or added at the top.
void updateParkFile();
// Sorts the list by distance from the user (lat, lon), unless a destination holds the head.
void lf_sortParkAirports(double lat, double lon);
// The "Re-read" request: reads the list again; `message` tells the user what changed, or that
// all is well. False when the reading failed.
bool reReadParkAirports(bool atRun, std::string& message);
// Sets the feed range from the user's height and the head of the list.
void computeAutoRange();
// At start-up: the stored DESTINATION, when the catalogue knows it, goes to the head of the list.
void lf_lookUpDestination();
// At the reset of a run: the last sort is forgotten.
void lf_resetParkAirportList();

}  // namespace orv
