// Not built yet: no static aircraft is placed, so the wait for the calculation ends at once.
#include "parking/static_parking.h"

#include "parking/parking_hooks.h"

namespace orv {

void lf_calcStaticParking() { gv_endParkingWait(); }

}  // namespace orv
