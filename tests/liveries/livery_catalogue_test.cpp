#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "catalogue_fixture.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/status_values.h"
#include "foundation/user_paths.h"
#include "liveries/category_reports.h"
#include "liveries/livery_catalogue.h"
#include "liveries/livery_indexes.h"
#include "refdata/code_tables.h"
#include "refdata/similar_models.h"
#include "test_support.h"

namespace orv {
namespace {

using test::Livery;
using Texts = std::vector<std::string>;

Texts texts(const TitleList* titles) {
  Texts result;
  if (titles != nullptr)
    for (const CatalogueTitle* t : *titles) result.push_back(t->text);
  return result;
}

// A small fleet: pax and cargo of one airline and model, a freighter operator, a regional
// company flying for an airline, generic paints, private light aircraft, a helicopter.
const std::vector<Livery> kFleet{
    {"DLH", "B744", "B747 Lufthansa"},
    {"DLH", "B744", "B747-400F Lufthansa Cargo", "", true},
    {"DLH", "A320", "Airbus A320 Lufthansa D-AIZA", "D-AIZA"},
    {"DLH", "A320", "Airbus A320 Lufthansa"},
    {"DLH", "CRJ9", "CRJ900 Lufthansa Regional", "D-ACNA", false, "CLH"},
    {"CLH", "CRJ9", "CRJ900 CityLine own colours"},
    {"FDX", "MD11", "MD-11F FedEx", "N601FE", true},
    {"ZZZ", "B738", "Boeing 737-800 House Colours"},
    {"ZZZ", "C172", "Cessna 172 White"},
    {"PVT", "C172", "Cessna 172 D-EABC", "D-EABC"},
    {"PVT", "EC35", "EC135 Police", "D-HBPA"},
};

class LiveryCatalogue : public testing::Test {
 protected:
  void SetUp() override {
    // Index order unlike text order, so that the model lists show they go by index.
    for (const char* code : {"C172", "B738", "A320", "B744", "CRJ9", "MD11", "EC35"}) modelIndex(code);
    test::setCategories({"A320", "B738", "CRJ9"}, {"B744", "MD11"}, {}, {"F16"}, {"EC35"});
    similarGroups = {{"A319", "A320", "A321"}};
    lf_showClassBox.set([](const CheckboxParameter* box, bool enabled) { boxes.emplace_back(box->name, enabled); });
  }
  void TearDown() override { boxes.clear(); }

  static inline std::vector<std::pair<std::string, bool>> boxes;
  test::LogCapture log;
  test::CatalogueFolder folder;
};

TEST_F(LiveryCatalogue, SplitsPaxAndCargoAndFilesASecondAirlineUnderTheJoinedCode) {
  folder.index(kFleet);
  const uint16_t dlh = airlineIndex("DLH"), b744 = modelIndex("B744"), a320 = modelIndex("A320");
  EXPECT_EQ(texts(gf_airlineModelTitles(0, dlh, b744)), Texts{"B747 Lufthansa"});
  EXPECT_EQ(texts(gf_airlineModelTitles(1, dlh, b744)), Texts{"B747-400F Lufthansa Cargo"});
  EXPECT_EQ(texts(gf_airlineModelTitles(0, dlh, a320)),
            (Texts{"Airbus A320 Lufthansa", "Airbus A320 Lufthansa D-AIZA"}));
  EXPECT_EQ(gf_airlineModelTitles(1, dlh, a320), nullptr) << "no empty cargo entry";

  // The regional title stands only under "DLHCLH", not under either airline.
  const uint16_t crj9 = modelIndex("CRJ9");
  EXPECT_EQ(texts(gf_airlineModelTitles(0, airlineIndex("DLHCLH"), crj9)), Texts{"CRJ900 Lufthansa Regional"});
  EXPECT_EQ(gf_airlineModelTitles(0, dlh, crj9), nullptr);
  EXPECT_EQ(texts(gf_airlineModelTitles(0, airlineIndex("CLH"), crj9)), Texts{"CRJ900 CityLine own colours"});

  // Titles of all airlines per model; a model with cargo titles only has no pax entry.
  EXPECT_EQ(texts(gf_modelTitles(0, crj9)).size(), 2u);
  EXPECT_EQ(texts(gf_modelTitles(1, modelIndex("MD11"))), Texts{"MD-11F FedEx"});
  EXPECT_EQ(gf_modelTitles(0, modelIndex("MD11")), nullptr);
  Texts c172 = texts(gf_modelTitles(0, modelIndex("C172")));
  std::sort(c172.begin(), c172.end());
  EXPECT_EQ(c172, (Texts{"Cessna 172 D-EABC", "Cessna 172 White"}));

  // Every title in the indexes is a view on the one stored copy.
  const CatalogueTitle* stored = gf_findCatalogueTitle("Airbus A320 Lufthansa D-AIZA");
  ASSERT_NE(stored, nullptr);
  EXPECT_EQ(regcodeToTitle.at("D-AIZA"), stored);
  EXPECT_EQ(titleToRegcode.at(stored->text), "D-AIZA");
  EXPECT_EQ(stored->regcode, "D-AIZA");
  EXPECT_EQ(gf_airlineModelTitles(0, dlh, a320)->back(), stored);

  EXPECT_TRUE(liveriesScannedList.empty()) << "the read list is freed";
  EXPECT_EQ(gScanStatus.liveries.load(), 11u);
  const std::string text = log.text();
  EXPECT_NE(text.find("   11 liveries read from "), std::string::npos) << text;
  EXPECT_NE(text.find("    5 registration codes\n"), std::string::npos);
  // DLH, DLHCLH, CLH, FDX, ZZZ, PVT; pax models B744 A320 CRJ9 B738 C172 EC35; cargo B744 MD11.
  EXPECT_NE(text.find("    6 airlines, 6 pax aircraft models and 2 cargo aircraft models\n"), std::string::npos);
  // A319 and A321 may stand in by A320, which has liveries; A320 by neither.
  EXPECT_NE(text.find("    2 similar model definitions\n\n"), std::string::npos);
  EXPECT_EQ(similarAvailable.at(modelIndex("A321")), std::vector<uint16_t>{a320});
  EXPECT_FALSE(similarAvailable.contains(a320));
}

TEST_F(LiveryCatalogue, ReportsEachCategoryAndSwitchesOffAClassWithoutLiveries) {
  std::filesystem::create_directories(gf_userFolder());
  folder.index(kFleet);
  const std::string text = log.text();
  const auto at = [&](const std::string& line) { return text.find(line); };
  ASSERT_NE(at("Category Light: 2 pax liveries\n  C172\n"), std::string::npos) << text;
  EXPECT_NE(at("Category Buzjets: No livery found\n"), std::string::npos);
  EXPECT_NE(at("Category Large: 5 pax liveries\n  B738,A320,CRJ9\n"), std::string::npos);
  EXPECT_NE(at("Category Heavy: 1 pax liverie and 2 cargo liveries\n  B744,MD11\n"), std::string::npos);
  EXPECT_NE(at("Category HighPerf: No livery found\n"
               "HIGH_PERF_AIRCRAFT temporarily switched off because you do not have High Perf aircraft installed\n"),
            std::string::npos);
  EXPECT_NE(at("Category Rotorcraft: 1 pax liverie\n  EC35\n"), std::string::npos);
  EXPECT_NE(at("2 models have a generic livery\n  C172,B738\n"), std::string::npos);
  EXPECT_LT(at("Category Light"), at("Category Rotorcraft"));
  EXPECT_LT(at("Category Rotorcraft"), at("generic livery"));
  EXPECT_EQ(at("Light aircraft"), std::string::npos);

  EXPECT_FALSE(HIGH_PERF_AIRCRAFT.value);
  EXPECT_NE(test::readFile(gf_parametersPath()).find(R"(name="HIGH_PERF_AIRCRAFT" value="false")"), std::string::npos)
      << "the switch-off is saved";
  EXPECT_TRUE(LIGHT_AIRCRAFT.value);
  EXPECT_EQ(boxes, (std::vector<std::pair<std::string, bool>>{
                       {"LIGHT_AIRCRAFT", true}, {"HIGH_PERF_AIRCRAFT", false}, {"HELICOPTERS", true}}));
  EXPECT_EQ(categoryModels[0], std::vector<uint16_t>{modelIndex("C172")});
  EXPECT_TRUE(categoryModels[1].empty());
  EXPECT_EQ(categoryModels[2], std::vector<uint16_t>{modelIndex("EC35")});
}

TEST_F(LiveryCatalogue, AClassAlreadyOffIsNotSwitchedOffAgainAndNoGenericIsSaidSo) {
  LIGHT_AIRCRAFT.set(false);
  folder.index({{"DLH", "A320", "Airbus A320 Lufthansa"}});
  const std::string text = log.text();
  EXPECT_NE(text.find("Category Light: No livery found\nCategory Buzjets"), std::string::npos) << text;
  EXPECT_NE(text.find("HELICOPTERS temporarily switched off because you do not have Helicopters installed\n"),
            std::string::npos);
  EXPECT_NE(text.find("No generic liveries\n"), std::string::npos);
  EXPECT_EQ(boxes.front(), (std::pair<std::string, bool>{"LIGHT_AIRCRAFT", false}))
      << "the box is disabled all the same";
}

TEST_F(LiveryCatalogue, IsBuiltOncePerProcessAndAgainAfterAReset) {
  folder.index(kFleet);
  folder.write({{"KLM", "B738", "Boeing 737-800 KLM"}});
  gf_processScannedLiveries(folder.file());
  EXPECT_NE(log.text().find("Processing scanned liveries skipped; already done in previous start-up\n"),
            std::string::npos);
  EXPECT_EQ(gf_airlineModelTitles(0, airlineIndex("KLM"), modelIndex("B738")), nullptr);
  EXPECT_NE(gf_findCatalogueTitle("B747 Lufthansa"), nullptr);

  gf_resetLiveryIndexes();
  EXPECT_EQ(gf_findCatalogueTitle("B747 Lufthansa"), nullptr);
  EXPECT_TRUE(regcodeToTitle.empty() && specialTitles.empty() && categoryModels[0].empty());
  gf_processScannedLiveries(folder.file());
  EXPECT_EQ(texts(gf_airlineModelTitles(0, airlineIndex("KLM"), modelIndex("B738"))), Texts{"Boeing 737-800 KLM"});
}

TEST_F(LiveryCatalogue, TheFirstClaimOfARegcodeStaysAndClashesAreReported) {
  folder.index({
      {"DLH", "A320", "Airbus A320 Lufthansa", "D-AIZA"},
      {"DLH", "A320", "Airbus A320 Lufthansa retro", "D-AIZA"},  // second claim of the regcode
      {"DLH", "A320", "Airbus A320 Lufthansa", "D-AIZB"},        // second regcode of a title
  });
  EXPECT_EQ(regcodeToTitle.at("D-AIZA")->text, "Airbus A320 Lufthansa");
  EXPECT_EQ(regcodeToTitle.at("D-AIZB")->text, "Airbus A320 Lufthansa");
  EXPECT_EQ(titleToRegcode.at("Airbus A320 Lufthansa"), "D-AIZA");
  EXPECT_EQ(titleToRegcode.at("Airbus A320 Lufthansa retro"), "D-AIZA");
  const std::string clashes = test::readFile(folder.path() / "output" / "errors" / "InlineRegcodes.txt");
  EXPECT_EQ(clashes,
            "Airbus A320 Lufthansa 'D-AIZB' => already in use by 'D-AIZA'\n"
            "D-AIZA 'Airbus A320 Lufthansa retro' => already in use by 'Airbus A320 Lufthansa'\n");
  EXPECT_NE(log.text().find("    2 in-line regcode clashes, see 'output/errors/InlineRegcodes.txt'\n"),
            std::string::npos);
}

}  // namespace
}  // namespace orv
