// The run state that this folder's tests start from.
#include "test_support.h"

#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "parking/parking_run_state.h"
#include "ui/run_requests.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  gf_resetRunFlags();
  lf_resetParkingRunState();
  lf_resetRunRequests();
  lf_resetStatusBand();
  lf_clearParkAirportBand();
  // The parking side's marks that no band reset clears.
  gParkingStatus.minutesToUpdate.store(20);
  gParkingStatus.parkingPossible.store(false);
  gParkingStatus.tbloRequest.store(false);
  gParkingStatus.objectIdText.store({});
}

}  // namespace orv::test
