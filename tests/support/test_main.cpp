// Every test binary runs with its own AppData folder, so that no test touches a real user's
// files, and every test starts from the state a new run starts from, whatever ran before it.
#include <gtest/gtest.h>

#include "test_support.h"

namespace {

class ResetBeforeEachTest : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { orv::test::resetRunState(); }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  orv::test::AppDataOverride appData;
  testing::UnitTest::GetInstance()->listeners().Append(new ResetBeforeEachTest);
  return RUN_ALL_TESTS();
}
