// The run state that this folder's tests start from.
#include "engine/engine_tables.h"
#include "feed/feed_readers.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "test_support.h"

namespace orv::test {

void resetRunState() {
  gf_resetMessageArea();
  gf_resetRunFlags();
  gf_resetEngine();
  lf_resetFeed();
}

}  // namespace orv::test
