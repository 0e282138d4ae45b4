// The run state that this folder's tests start from.
#include "test_support.h"

#include "engine/engine_tables.h"
#include "foundation/run_flags.h"

namespace orv::test {

void resetRunState() {
  gf_resetRunFlags();
  gf_resetEngine();
}

}  // namespace orv::test
