// This folder's tests exercise a layer or tool that keeps no run state of the program.
#include "test_support.h"

namespace orv::test {

void resetRunState() {}

}  // namespace orv::test
