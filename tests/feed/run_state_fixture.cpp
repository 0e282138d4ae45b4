// The run state that this folder's tests start from.
#include "test_support.h"

#include "engine/engine_tables.h"
#include "feed/feed_readers.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"

namespace orv::test {

void resetRunState() {
  // A process starts with an empty message area; a run keeps its error on display.
  gf_resetMessageArea();
  gf_resetRunFlags();
  gf_resetEngine();
  lf_resetFeed();
}

}  // namespace orv::test
