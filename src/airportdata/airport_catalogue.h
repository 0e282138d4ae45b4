#pragma once
// The catalogue of the airports that RealTraffic supports: code, IATA code, position,
// elevation, and the stands level that tells whether the maker holds a stock airport file.
#include <cstdint>
#include <string_view>
#include <vector>

#include "foundation/fixed_code.h"

namespace orv {

struct RtAirport {
  FixedCode<4> icao;
  FixedCode<3> iata;  // empty when unknown
  double latitude = 0;
  double longitude = 0;
  float altitude = 0;       // feet
  std::int32_t stands = 0;  // 0: no stock airport file; 1 or more: the server holds one
};

// Sorted by icao.
extern std::vector<RtAirport> gRtAirports;

// Reads input/airports.enc once per process; a later call tells whether the catalogue is
// filled. Throws UserErrorException 88 when the file cannot be read.
bool gf_readAirports();
// The catalogue and input/ICAO_airports.txt, as the start of a run needs them; both once per process.
bool lf_readAirportCatalogue();

bool isRtAirport(std::string_view code);
const RtAirport* findRtAirport(std::string_view code);

// Forgets the catalogue, so that the next read loads it again (tests, a new process state).
void lf_clearAirportCatalogue();

}  // namespace orv
