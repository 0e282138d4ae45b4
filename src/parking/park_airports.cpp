// Not built yet: the list stays empty, the range stays as set, the destination is not looked up.
#include "parking/park_airports.h"

namespace orv {

void lf_readMyParkAirports() {}
std::string lf_rereadMyParkAirports() { return {}; }
void computeAutoRange() {}
void lf_lookUpDestination() {}

}  // namespace orv
