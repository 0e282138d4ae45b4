#pragma once
// Loading the park airport's file: the archived file from disk or from the download site, the
// user's learned file over it, the settings the airport remembers, and the stands numbered.
#include <string>
#include <vector>

#include "airportdata/park_airport_file.h"
#include "airportdata/quality_factors.h"
#include "airportdata/stands.h"

namespace orv {

// Loads xmlName (a path from locateAirportFile) for the park airport airport.icao into the
// stand table. Empty on success, otherwise the text of the failure. A UserErrorException of
// the stand reader, or of a file without altitude, passes through.
std::string gf_readApf(const std::string& xmlName, ApfAirport& airport, QualityFactors& qualityFactors,
                       std::vector<Stand>& stands);

}  // namespace orv
