// Every test binary runs with its own AppData folder, so that no test touches a real user's files.
#include <gtest/gtest.h>

#include "test_support.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  orv::test::AppDataOverride appData;
  return RUN_ALL_TESTS();
}
