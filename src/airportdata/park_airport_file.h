#pragma once
// What the load of the park airport's file leaves for the rest of the program: the airport's
// name, publisher and elevation, its quality factors, whether a handmade file rules, and
// whether the stand table may be used at all.
#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

#include "airportdata/quality_factors.h"

namespace orv {

struct ApfAirport {
  std::string icao;  // the park airport, set by its chooser; empty while none is set
  std::string airportName;
  std::string publisher;
  std::string version;        // the scenery package's version; empty when the file has none
  std::int32_t altitude = 0;  // feet; below sea level at some airports
};

extern ApfAirport gApfAirport;
extern QualityFactors gQualityFactors;
// A handmade learned file replaced the archived file.
extern bool gv_handmade;
// Set last by a load that succeeded, cleared with the park airport: other threads test it
// before they touch the stand table.
extern std::atomic<bool> gv_airportFileValid;
extern std::int32_t gv_rtTrafficWeek;
extern std::optional<float> gv_airportAltitudeFt;

// No park airport file: the table empty, the values above as before any load.
void lf_clearParkAirportFile();

}  // namespace orv
