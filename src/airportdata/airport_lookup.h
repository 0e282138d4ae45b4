#pragma once
// Which airport file counts for an airport. What the user or the scan put on disk goes before
// the maker's stock file: first the third-party folder, then the simulator's add-on folder,
// each with its link file (a path on the server) before its own file.
#include <string>
#include <string_view>

namespace orv {

// The relative path of the file to read: a local one ("airports\..."), a server path from a
// link file, or "archive/stock/<icao>.xml"; empty when the airport has no file.
std::string locateAirportFile(std::string_view icao);

// Whether any source holds a file of the airport.
bool airportFileExists(std::string_view icao);

// The first line of a link file, without trailing white space, when it is a path to an XML
// file; empty otherwise.
std::string gf_readLinkFile(std::string_view linkPath);

}  // namespace orv
