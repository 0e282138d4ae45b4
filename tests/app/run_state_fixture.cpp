// The run state that this folder's tests start from.
#include "test_support.h"

#include "airportdata/airport_catalogue.h"
#include "airportdata/all_icao.h"
#include "app/closing_down.h"
#include "app/process_state.h"
#include "engine/engine_hooks.h"
#include "engine/sim_port.h"
#include "foundation/message_area.h"
#include "foundation/status_values.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  // A new process has no layer bound; a process run binds them itself, and they would otherwise
  // reach a simulator session that ended with that run.
  gf_bindSim(nullptr);
  gv_feedPositionStep.set(nullptr);
  gv_placeNextStatic.set(nullptr);
  lf_resetProcessState();
  lf_resetRunState();
  lf_clearParkAirportBand();
  // The catalogue is read once per process; each test is a new one.
  lf_clearAirportCatalogue();
  gAllIcao.clear();
}

}  // namespace orv::test
