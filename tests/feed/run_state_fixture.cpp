// The run state that this folder's tests start from.
#include "test_support.h"

#include "engine/engine_tables.h"
#include "feed/feed_readers.h"
#include "feed/rt_link.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "simlink/user_aircraft.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  gf_resetRunFlags();
  gf_resetEngine();
  lf_closeRt();
  lf_resetFeed();
  lf_resetStatusBand();
  // What the link learnt of RealTraffic and of the user belongs to the run before.
  gv_rtOnThisPc = false;
  gv_rtProf = false;
  gUserSnapshot = UserBlock{};
}

}  // namespace orv::test
