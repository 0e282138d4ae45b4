#pragma once
// The catalogue of supported airports: code, position and the sources of each airport file.

namespace orv {

// Reads input/airports.enc into the catalogue; false when it cannot be read, which ends the run.
bool lf_readAirportCatalogue();

}  // namespace orv
