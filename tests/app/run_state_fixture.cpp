// The run state that this folder's tests start from.
#include "test_support.h"

#include "app/closing_down.h"

namespace orv::test {

void resetRunState() {
  lf_resetRunState();
}

}  // namespace orv::test
