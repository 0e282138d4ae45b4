// The run state that this folder's tests start from.
#include "test_support.h"

#include "airportdata/airport_catalogue.h"
#include "airportdata/all_icao.h"
#include "app/closing_down.h"
#include "app/process_state.h"
#include "foundation/message_area.h"
#include "foundation/status_values.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  lf_resetProcessState();
  lf_resetRunState();
  lf_clearParkAirportBand();
  // The catalogue is read once per process; each test is a new one.
  lf_clearAirportCatalogue();
  gAllIcao.clear();
}

}  // namespace orv::test
