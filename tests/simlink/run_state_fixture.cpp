// The run state that this folder's tests start from.
#include "test_support.h"

#include "engine/engine_tables.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "refdata/model_categories.h"
#include "simlink/create_failures.h"
#include "simlink/sim_port_binding.h"
#include "simlink/sim_session.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  gf_resetRunFlags();
  gf_resetEngine();
  gf_resetSimLink();
  gAddedObjects.clear();
  gPendingCreates.clear();
  lf_resetStatusBand();
  gf_setRange(RANGE.defaultValue);
  lf_clearModelCategories();
  gv_rtProf = false;
  gv_isMsfs2020 = true;
  // The program binds the engine's port once per process.
  gf_bindSimLink();
  // Refused titles are kept for the life of a process; each test is a process of its own.
  gFailedTitles.clear();
  gFailedTitleInfo.clear();
}

}  // namespace orv::test
