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

TEST(CommandLine, TheDownloadSiteIsTheLastOneNamed) {
  EXPECT_EQ(lf_downloadSiteRequested({}), std::nullopt);
  EXPECT_EQ(lf_downloadSiteRequested({"--download-site"}), std::nullopt) << "a name without its value";
  EXPECT_EQ(lf_downloadSiteRequested({"--download-site", "http://127.0.0.1:8080/", "--seconds", "4"}),
            "http://127.0.0.1:8080/");
  EXPECT_EQ(lf_downloadSiteRequested({"--download-site", "http://a/", "--download-site", "http://b/"}), "http://b/");
}

}  // namespace
}  // namespace orv
