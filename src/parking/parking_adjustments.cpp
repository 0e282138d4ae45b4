// Not built yet: there are no static aircraft to adjust or remove. Parking is possible when the
// park airport's file has been loaded, which marks it on the window.
#include "parking/parking_adjustments.h"

#include "foundation/status_values.h"

namespace orv {

void lf_adjustParking() {}
void lf_removeAllStatic() {}
bool lf_parkingPossible() { return gParkingStatus.parkingPossible.load(); }

}  // namespace orv
