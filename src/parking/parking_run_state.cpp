#include "parking/parking_run_state.h"

namespace orv {

void lf_resetParkingRunState() {
  gv_staticUpdatePending = false;
  gv_staticUpdateRunning = false;
  gv_staticUpdateSecondPhase = false;
}

}  // namespace orv
