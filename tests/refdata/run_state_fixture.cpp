// The run state that this folder's tests start from.
#include "test_support.h"

#include "foundation/run_flags.h"

namespace orv::test {

void resetRunState() {
  gf_resetRunFlags();
}

}  // namespace orv::test
