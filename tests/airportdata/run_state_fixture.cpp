// The run state that this folder's tests start from.
#include "airportdata/airport_catalogue.h"
#include "airportdata/all_icao.h"
#include "airportdata/park_airport_file.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "foundation/sim_choice.h"
#include "refdata/code_tables.h"
#include "refdata/download_site.h"
#include "refdata/registrations.h"
#include "refdata/valid_codes.h"
#include "test_support.h"

namespace orv::test {

namespace {
template <class P>
void toDefault(P& parameter) {
  parameter.set(parameter.defaultValue);
}
}  // namespace

void resetRunState() {
  gf_resetMessageArea();
  gf_resetRunFlags();
  lf_clearParkAirportFile();
  lf_clearAirportCatalogue();
  gAllIcao.clear();
  lf_setDbaseRecords({});
  lf_clearValidCodes();
  gf_resetCodeTables();
  gf_setDownloadSite(kMakerSite);
  gv_isMsfs2020 = true;
  // The parking settings that airport files carry.
  toDefault(MAX_LIVE_SEL);
  toDefault(MAX_FIT);
  gf_maxFitFromStored();
  toDefault(parking_percentage);
  toDefault(AUTO_RANGE);
  gf_setRange(RANGE.defaultValue);
  toDefault(INITIAL_LOAD_ONLY);
  toDefault(PARK_SOFT);
  toDefault(WEEK);
}

}  // namespace orv::test
