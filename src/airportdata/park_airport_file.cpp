#include "airportdata/park_airport_file.h"

#include "airportdata/stands.h"

namespace orv {

ApfAirport gApfAirport;
QualityFactors gQualityFactors;
bool gv_handmade = false;
std::atomic<bool> gv_airportFileValid{false};
std::int32_t gv_rtTrafficWeek = 0;
std::optional<float> gv_airportAltitudeFt;

void lf_clearParkAirportFile() {
  gv_airportFileValid = false;
  gStands.clear();
  gApfAirport = {};
  gQualityFactors = {};
  gv_handmade = false;
  gv_rtTrafficWeek = 0;
  gv_airportAltitudeFt.reset();
}

}  // namespace orv
