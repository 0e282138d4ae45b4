#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "catalogue_fixture.h"
#include "foundation/parameters.h"
#include "liveries/failed_titles.h"
#include "liveries/livery_indexes.h"
#include "liveries/livery_matching.h"
#include "liveries/match_summary.h"
#include "refdata/ac_code_text.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/prefix_groups.h"
#include "refdata/similar_models.h"
#include "test_support.h"

namespace orv {
namespace {

using test::Livery;

LiveryQuery aircraft(const char* airline, const char* model, std::string_view reg = "", bool cargo = false,
                     const char* airline2 = "") {
  LiveryQuery ac;
  ac.code.airline = airlineIndex(airline);
  ac.code.airline2 = airlineIndex(airline2);
  ac.code.acType = modelIndex(model);
  ac.code.cargo = cargo ? 1 : 0;
  ac.acClass = categoryOfModel(ac.code.acType);
  ac.reg = reg;
  ac.cs = "TST1";
  ac.description = "TST1 aircraft";
  return ac;
}

// One aircraft through the live ladder: its title and the step that counted it (-1: none).
struct Found {
  std::string title;
  int step;
  bool operator==(const Found&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Found& f) { return out << "'" << f.title << "' at " << f.step; }

Found live(LiveryQuery ac) {
  const auto before = matchCounters;
  gf_findLiveryLive(ac);
  int step = -1;
  for (std::size_t i = 0; i < before.size(); ++i)
    if (matchCounters[i] != before[i]) step = static_cast<int>(i);
  return {std::string(ac.title), step};
}

class LiveryMatching : public testing::Test {
 protected:
  void SetUp() override {
    test::setCategories({"A319", "A320", "A321", "B738", "CRJ9"}, {"B744"}, {"C56X"}, {}, {"EC35"});
    similarGroups = {{"A319", "A320", "A321"}, {"C152", "C172"}};
    prefixGroupLists = {{"D-", "OE-", "HB-"}};
    lf_buildPrefixGroups();
    folder.index({
        {"DLH", "A320", "Airbus A320 Lufthansa"},
        {"DLH", "A320", "Airbus A320 Lufthansa D-AIZA", "D-AIZA"},
        {"DLH", "A319", "Airbus A319 Lufthansa"},
        {"BAW", "A320", "Airbus A320 British Airways G-EUUA", "G-EUUA"},
        {"SKW", "CRJ9", "CRJ900 SkyWest"},
        {"SKW", "CRJ9", "CRJ900 SkyWest Delta Connection"},
        {"DAL", "CRJ9", "CRJ900 Delta"},
        {"DLH", "B744", "B747 Lufthansa"},
        {"ZZZ", "B738", "Boeing 737-800 House Colours"},
        {"ZZZ", "B738", "Boeing 737-800 Freighter Generic", "", true},
        {"ZZZ", "C182", "Cessna 182 Generic White"},
        {"PVT", "C172", "Cessna 172 D-EABC", "D-EABC"},
        {"PVT", "C172", "Cessna 172 N12345", "N12345"},
        {"EWG", "A320", "FSLTL_A320_EWG Eurowings"},
    });
    uniqueRegcodes.insert("G-EUUA");
    RANDOM.set(false);
  }

  test::LogCapture log;
  test::CatalogueFolder folder;
};

TEST_F(LiveryMatching, EachRungIsReachedByTheAircraftItIsFor) {
  // 0: a unique registration wins over airline and model.
  EXPECT_EQ(live(aircraft("DLH", "A320", "G-EUUA")), (Found{"Airbus A320 British Airways G-EUUA", 0}));
  // 1: a registration of the catalogue, even on another model.
  EXPECT_EQ(live(aircraft("DLH", "A319", "D-AIZA")), (Found{"Airbus A320 Lufthansa D-AIZA", 1}));
  // 2: airline and model; a freighter takes a pax livery when its airline has no cargo one.
  EXPECT_EQ(live(aircraft("DLH", "A320")), (Found{"Airbus A320 Lufthansa", 2}));
  EXPECT_EQ(live(aircraft("DLH", "A320", "", true)), (Found{"Airbus A320 Lufthansa", 2}));
  // 2: a private aircraft takes a private livery of its own register's group.
  EXPECT_EQ(live(aircraft("PVT", "C172", "OE-KAB")), (Found{"Cessna 172 D-EABC", 2}));
  // 3: the airline's livery of a similar model.
  EXPECT_EQ(live(aircraft("DLH", "A321")).step, 3);
  // 4: a generic livery; pax for a pax aircraft.
  EXPECT_EQ(live(aircraft("RYR", "B738")), (Found{"Boeing 737-800 House Colours", 4}));
  EXPECT_EQ(live(aircraft("RYR", "B738", "", true)), (Found{"Boeing 737-800 Freighter Generic", 4}));
  EXPECT_EQ(live(aircraft("PVT", "C182", "D-EXYZ")), (Found{"Cessna 182 Generic White", 4}));
  // 5: a light aircraft takes another owner's livery of its model, of its register's group first.
  EXPECT_EQ(live(aircraft("SWT", "C172", "HB-ABC")), (Found{"Cessna 172 D-EABC", 5}));
  // 6: of a similar model, or of any model of its category.
  EXPECT_EQ(live(aircraft("SWT", "C152", "N999")), (Found{"Cessna 172 N12345", 6}));
  EXPECT_EQ(live(aircraft("SWT", "DR40", "F-GABC")).step, 6);
  // None: a Heavy aircraft takes no other airline's paint, a light one without a registration neither.
  EXPECT_EQ(live(aircraft("QFA", "B744", "VH-OJA")), (Found{"", -1}));
  EXPECT_EQ(live(aircraft("SWT", "C172")), (Found{"", -1}));

  EXPECT_EQ(matchCounters, (std::array<std::uint32_t, 7>{1, 1, 3, 1, 3, 1, 2}));
  const std::string text = log.text();
  EXPECT_NE(text.find("\n          TST1 aircraft =0= Airbus A320 British Airways G-EUUA\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n          TST1 aircraft =5= Cessna 172 D-EABC\n"), std::string::npos);
}

TEST_F(LiveryMatching, ATitleOfTheSecondAirlineThatNamesTheFirstWinsOverPlainTitles) {
  RANDOM.set(true);
  for (int i = 0; i < 20; ++i)
    EXPECT_EQ(live(aircraft("DAL", "CRJ9", "", false, "SKW")), (Found{"CRJ900 SkyWest Delta Connection", 2}));
  // Under the joined code a title of its own goes first.
  test::CatalogueFolder other;
  gf_resetLiveryIndexes();
  other.index({{"DAL", "CRJ9", "CRJ900 Delta"},
               {"DAL", "CRJ9", "CRJ900 Delta Connection by SkyWest", "", false, "SKW"},
               {"SKW", "CRJ9", "CRJ900 SkyWest Delta Connection"}});
  EXPECT_EQ(live(aircraft("DAL", "CRJ9", "", false, "SKW")).title, "CRJ900 Delta Connection by SkyWest");
}

TEST_F(LiveryMatching, MatchingDepthLimitsTheLadder) {
  MATCHING_DEPTH.set(1);
  EXPECT_EQ(live(aircraft("DLH", "A319", "D-AIZA")).step, 1);
  EXPECT_EQ(live(aircraft("DLH", "A320")).step, -1);

  MATCHING_DEPTH.set(2);
  EXPECT_EQ(live(aircraft("DLH", "A320")).step, 2);
  EXPECT_EQ(live(aircraft("DLH", "A321")).step, -1);
  EXPECT_EQ(live(aircraft("PVT", "C182", "D-EXYZ")), (Found{"Cessna 182 Generic White", 4})) << "private: from 2 on";

  MATCHING_DEPTH.set(3);
  EXPECT_EQ(live(aircraft("DLH", "A321")).step, 3);
  EXPECT_EQ(live(aircraft("RYR", "B738")).step, -1);
  EXPECT_EQ(live(aircraft("SWT", "C172", "HB-ABC")).step, -1);
  EXPECT_EQ(live(aircraft("PVT", "C182", "D-EXYZ")).step, 4);
}

TEST_F(LiveryMatching, RefusedTitlesAreNotGivenAndSpecialOnesOnlyWhenNothingElseIs) {
  gFailedTitles.emplace("Airbus A320 Lufthansa D-AIZA");
  EXPECT_EQ(live(aircraft("DLH", "A320", "D-AIZA")), (Found{"Airbus A320 Lufthansa", 2}))
      << "a refused regcode title lets the ladder go on";
  gFailedTitles.clear();

  RANDOM.set(true);
  specialTitles.insert(gf_findCatalogueTitle("Airbus A320 Lufthansa")->text);
  specialTitles.insert(gf_findCatalogueTitle("Airbus A319 Lufthansa")->text);
  std::set<std::string> a320, a319;
  for (int i = 0; i < 30; ++i) {
    a320.insert(live(aircraft("DLH", "A320")).title);
    a319.insert(live(aircraft("DLH", "A319")).title);
  }
  EXPECT_EQ(a320, std::set<std::string>{"Airbus A320 Lufthansa D-AIZA"});
  EXPECT_EQ(a319, std::set<std::string>{"Airbus A319 Lufthansa"}) << "a list of special titles still gives one";
}

TEST_F(LiveryMatching, WithoutRandomTwoAircraftGetTheSameTitle) {
  LiveryQuery first = aircraft("CFG", "B738"), second = aircraft("CFG", "B738");
  gf_findLiveryLive(first);
  gf_findLiveryLive(second);
  EXPECT_EQ(first.title, second.title);
  EXPECT_EQ(first.title.data(), gf_findCatalogueTitle("Boeing 737-800 House Colours")->text.data())
      << "a view on the stored title";

  LiveryQuery fsltl = aircraft("EWG", "A320");
  gf_findLiveryLive(fsltl);
  EXPECT_EQ(fsltl.reverser, 1);
  EXPECT_EQ(first.reverser, 0);
}

TEST_F(LiveryMatching, AParkedAircraftKeepsItsTitleTakesTheStandsCargoAndLogsAMiss) {
  LiveryQuery keeps = aircraft("DLH", "A320");
  keeps.title = "Airbus A320 Lufthansa D-AIZA";
  EXPECT_TRUE(gf_findLiveryParked(keeps, {"V100", false}));
  EXPECT_EQ(keeps.title, "Airbus A320 Lufthansa D-AIZA");

  LiveryQuery atCargoStand = aircraft("RYR", "B738");
  EXPECT_TRUE(gf_findLiveryParked(atCargoStand, {"C12", true}));
  EXPECT_EQ(atCargoStand.title, "Boeing 737-800 Freighter Generic");
  LiveryQuery fsltl = aircraft("EWG", "A320");
  EXPECT_TRUE(gf_findLiveryParked(fsltl, {"A1", false}));
  EXPECT_EQ(fsltl.reverser, 0) << "parked aircraft don't use the reverser";
  EXPECT_EQ(matchCounters, (std::array<std::uint32_t, 7>{})) << "parked aircraft are not counted";

  MATCHING_DEPTH.set(1);
  LiveryQuery miss = aircraft("RYR", "B738", "EI-ABC");
  miss.cs = "RYR123";
  EXPECT_FALSE(gf_findLiveryParked(miss, {"B12", false}));
  EXPECT_TRUE(miss.title.empty());

  const std::string text = log.text();
  EXPECT_NE(text.find("\n          TST1 aircraft =s= Airbus A320 Lufthansa D-AIZA\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n          TST1 aircraft =4= Boeing 737-800 Freighter Generic\n"), std::string::npos);
  EXPECT_NE(text.find("\nB12     : RYR123   EI-ABC " + gf_acCodeText(miss.code) + " no livery match ...\n"),
            std::string::npos);
}

}  // namespace
}  // namespace orv
