// Not built yet: no static aircraft is placed.
#include "parking/static_parking.h"

namespace orv {

void lf_firstParking(bool) {}

}  // namespace orv
