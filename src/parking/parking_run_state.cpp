#include "parking/parking_run_state.h"

#include "parking/park_airport_sight.h"
#include "parking/park_airports.h"

namespace orv {

void lf_resetParkingRunState() {
  gv_staticUpdatePending = false;
  gv_staticUpdateRunning = false;
  gv_staticUpdateSecondPhase = false;
  lf_resetParkAirportSight();
  lf_resetParkAirportList();
}

}  // namespace orv
