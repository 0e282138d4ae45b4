#include "app/command_line.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(CommandLine, TheLastProductionFormWins) {
  EXPECT_FALSE(lf_productionRequested({}));
  EXPECT_FALSE(lf_productionRequested({"--seconds", "3"}));
  EXPECT_TRUE(lf_productionRequested({"--production"}));
  EXPECT_TRUE(lf_productionRequested({"/PRODUCTION", "other"}));
  EXPECT_FALSE(lf_productionRequested({"--production", "--no-production"}));
  EXPECT_TRUE(lf_productionRequested({"/NO-PRODUCTION", "/Production"}));
  EXPECT_FALSE(lf_productionRequested({"-production", "production", "--production=1"}));
}

}  // namespace
}  // namespace orv
