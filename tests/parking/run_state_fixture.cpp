// The run state that this folder's tests start from.
#include "airportdata/airport_catalogue.h"
#include "airportdata/park_airport_file.h"
#include "engine/engine_tables.h"
#include "engine/user_snapshot.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "parking/park_airports.h"
#include "parking/parking_hooks.h"
#include "parking/parking_run_state.h"
#include "test_support.h"

namespace orv::test {

void resetRunState() {
  gf_resetMessageArea();
  gf_resetRunFlags();
  gf_resetEngine();
  lf_resetParkingRunState();
  lf_clearParkAirportFile();
  lf_clearAirportCatalogue();
  lf_clearParkAirportBand();
  gParkAirports.clear();
  gUserSnapshot = {};
  gv_userOnGround = false;
  for (auto* p : {&AIRP_RANGE, &AIRP_HEIGHT, &AR_ABOVE_HEIGHT}) p->set(p->defaultValue);
  DESTINATION.set("");
  gf_setRange(RANGE.defaultValue);
  gv_enterParkingWait.set(nullptr);
  gv_endParkingWait.set(nullptr);
  gv_enableReread.set(nullptr);
  gv_parkAirportChanged.set(nullptr);
}

}  // namespace orv::test
