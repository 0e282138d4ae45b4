// What the matching leaves for later: remembered titles, the aircraft without a livery, and
// the summary of the steps.
#include <gtest/gtest.h>

#include "liveries/failed_titles.h"
#include "liveries/match_memory.h"
#include "liveries/match_summary.h"
#include "refdata/ac_code_text.h"
#include "refdata/code_tables.h"
#include "test_support.h"

namespace orv {
namespace {

TEST(MatchMemory, ARememberedTitleThatTheSimulatorRefusedSinceIsForgotten) {
  static const std::string kept = "Airbus A320 Lufthansa", refused = "Boeing 737-800 KLM";
  gLiveryCache[4000001] = kept;
  gLiveryCache[4000002] = refused;
  gFailedTitles.emplace(refused);
  EXPECT_EQ(gf_rememberedTitle(4000001), kept);
  EXPECT_EQ(gf_rememberedTitle(4000002), "");
  EXPECT_FALSE(gLiveryCache.contains(4000002));
  EXPECT_EQ(gf_rememberedTitle(4000003), "");
  lf_clearLiveryCache();
  EXPECT_TRUE(gLiveryCache.empty());
}

TEST(MatchMemory, TheAircraftWithoutALiveryAreListedUntilARematchIsAsked) {
  test::LogCapture log;
  lf_writeNoMatchList();
  EXPECT_EQ(log.text().find("No match found"), std::string::npos) << "nothing while the list is empty";

  AcCode code;
  code.airline = airlineIndex("QFA");
  code.acType = modelIndex("B744");
  gNoMatch.insert(gf_noMatchText(code, "VH-OJA"));
  code.airline = airlineIndex("SWT");
  code.acType = modelIndex("C172");
  gNoMatch.insert(gf_noMatchText(code, "D-EFGH"));
  EXPECT_TRUE(gNoMatch.contains(gf_noMatchText(code, "D-EFGH")));
  EXPECT_FALSE(gNoMatch.contains(gf_noMatchText(code, "D-EFGI")));
  lf_writeNoMatchList();
  EXPECT_NE(log.text().find("\nNo match found for:\nQFA     B744     | VH-OJA\nSWT     C172     | D-EFGH\n\n"),
            std::string::npos)
      << log.text();
  lf_clearNoMatch();
  EXPECT_TRUE(gNoMatch.empty());
}

TEST(MatchSummary, CountsEachStepInABoxAndNamesTheRefusedLiveries) {
  test::LogCapture log;
  gf_writeMatchingSummary();
  EXPECT_EQ(log.text().find("matching summary"), std::string::npos) << "nothing while no aircraft was matched";

  matchCounters = {0, 2, 17, 3, 0, 0, 1};
  gFailedTitleInfo = {"A320 DLH", "B738 RYR"};
  gf_writeMatchingSummary();
  const std::string stars(31, '*');
  EXPECT_NE(log.text().find("\n\n" + stars + " live traffic livery matching summary " + stars +
                            "\nMatches at step: \n  0: 0\n  1: 2\n  2: 17\n  3: 3\n  4: 0\n  5: 0\n  6: 1\n"
                            "\nCould not be created\n  A320 DLH\n  B738 RYR\n" +
                            std::string(100, '*') + "\n\n"),
            std::string::npos)
      << log.text();
}

}  // namespace
}  // namespace orv
