#pragma once
// Where the park airport lies, as far as the motion of live aircraft needs it: the approach
// configuration near it and the height at which nothing is spawned. Airport parking writes it
// when it chooses or clears the park airport; run thread only.
#include "foundation/fixed_code.h"

namespace orv {

struct ParkAirportSite {
  bool chosen = false;
  FixedCode<3> iata;  // as the feed names origins and destinations
  double lat = 0, lon = 0;
  double elevationFt = 0;
};

inline ParkAirportSite gParkAirportSite;

}  // namespace orv
