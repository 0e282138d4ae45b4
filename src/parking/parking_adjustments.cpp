// Not built yet: there are no static aircraft to adjust or remove, and parking is never
// possible, so no update is announced.
#include "parking/parking_adjustments.h"

namespace orv {

void lf_periodicParking() {}
void lf_adjustParking() {}
void lf_removeAllStatic() {}
bool lf_parkingPossible() { return false; }
void lf_announceStaticUpdate() {}
void lf_clearParkAirport() {}

}  // namespace orv
