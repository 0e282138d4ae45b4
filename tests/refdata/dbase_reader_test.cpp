#include "refdata/dbase_reader.h"

#include <gtest/gtest.h>

#include <string>

#include "dbase_fixture.h"
#include "foundation/parameters.h"
#include "foundation/user_error.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/prefix_groups.h"
#include "refdata/registrations.h"
#include "refdata/scenery_lists.h"
#include "refdata/valid_codes.h"
#include "refdata/wingspans.h"
#include "test_support.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

class DbaseReader : public ::testing::Test {
 protected:
  void SetUp() override {
    gf_resetDbase();
    RANDOM.value = false;
  }
  void TearDown() override {
    gf_resetDbase();
    RANDOM.value = randomBefore;
  }
  bool read(const test::DbaseXml& xml) {
    test::writeEncrypted(enc(), xml.text());
    return gf_readDbaseFile(enc());
  }
  // The user error of a read, or code 0.
  UserErrorException readError(const test::DbaseXml& xml) {
    try {
      read(xml);
    } catch (const UserErrorException& e) {
      return e;
    }
    return UserErrorException(0, "no error");
  }
  fs::path enc() const { return dir / "dbase.enc"; }
  fs::path plain() const { return dir / "dbase.xml"; }

  test::TempDir dir;
  test::LogCapture log;
  bool randomBefore = RANDOM.value;
};

TEST_F(DbaseReader, ReadsTablesInOrderAndLogsCounts) {
  test::DbaseXml xml;
  xml.sections["prefixes"] = R"(<similar types="OE-,D-,HB-"/><similar types="G-"/>)";
  xml.sections["publishers"] =
      R"(<pub names="Orbx, ORBX "/><pub names="FlyTampa,Fly Tampa"/><pub names="Orbx, ORBX "/>)";
  xml.sections["thirdparties20"] = R"(<thirdpartie20 pub="Orbx" arpts="EGLC,YSSY"/>)";
  ASSERT_TRUE(read(xml));
  EXPECT_FALSE(fs::exists(plain()));

  // Models: the empty text, the valid codes sorted, then cargo types that were not among them.
  EXPECT_EQ(modelCode(0), "");
  EXPECT_EQ(modelCode(1), "A320");
  EXPECT_EQ(modelCode(2), "A321");
  EXPECT_EQ(modelCode(3), "B738");
  EXPECT_EQ(modelCode(4), "C172");
  EXPECT_EQ(modelCode(5), "B74F");
  EXPECT_TRUE(isValidModel("C172"));
  EXPECT_FALSE(isValidModel("B74F"));
  EXPECT_FALSE(isValidModel(""));
  // Airlines: the empty text, the valid codes sorted, then the cargo operators.
  EXPECT_EQ(airlineCode(1), "DLH");
  EXPECT_EQ(airlineCode(4), "ZZZ");
  EXPECT_EQ(airlineCode(5), "FDX");
  EXPECT_TRUE(isValidAirline("PVT"));
  EXPECT_FALSE(isValidAirline("FDX"));

  EXPECT_EQ(publishers, (std::vector<std::vector<std::string>>{{"FlyTampa", "Fly Tampa"}, {"Orbx", "ORBX"}}));
  EXPECT_EQ(prefixGroup("D-"), (std::vector<std::string>{"HB-", "OE-"}));
  EXPECT_TRUE(prefixGroup("G-").empty());
  EXPECT_TRUE(simAddons20.contains("KLAX"));
  EXPECT_EQ(simAddons24.size(), 1u);
  ASSERT_EQ(thirdParties20.size(), 1u);
  EXPECT_EQ(thirdParties20[0].airports, (std::vector<std::string>{"EGLC", "YSSY"}));

  const std::string text = log.text();
  for (const char* line : {"\n    4 ICAO model codes", "    2 prefixes", "    4 ICAO airline codes",
                           "    1 cargo operators", "    2 publishers", "    0 fixes", "1 simaddons24",
                           "    2 dbase records read"})
    EXPECT_NE(text.find(line), std::string::npos) << line;
}

TEST_F(DbaseReader, MissingOrBrokenFilesFailCleanly) {
  EXPECT_THROW(
      {
        try {
          gf_readDbaseFile(enc());
        } catch (const std::runtime_error& e) {
          EXPECT_EQ(std::string(e.what()), enc().string() + " not available");
          throw;
        }
      },
      std::runtime_error);

  test::writeFile(enc(), "not an encrypted file at all, but long enough for a header");
  try {
    gf_readDbaseFile(enc());
    ADD_FAILURE() << "no error";
  } catch (const std::runtime_error& e) {
    EXPECT_EQ(std::string(e.what()), enc().string() + " stream decrypt failed");
  }
  EXPECT_FALSE(fs::exists(plain()));

  // Only the header: an empty plain text, which is no XML document.
  test::writeEncrypted(enc(), "");
  std::string header = test::readFile(enc()).substr(0, 24);
  test::writeFile(enc(), header);
  EXPECT_FALSE(gf_readDbaseFile(enc()));
  EXPECT_FALSE(fs::exists(plain()));
  EXPECT_NE(log.text().find("'" + plain().string() + "' not read because of "), std::string::npos);
}

TEST_F(DbaseReader, StructureErrorsAreCode61AndRemoveThePlainFile) {
  for (const char* name : {"aircrafts", "cargo_types", "heavy", "large", "buzjet", "high_performance", "rotorcraft",
                           "ICAO_airlines", "cargo_operators", "simaddons20", "simaddons24"}) {
    test::DbaseXml xml;
    xml.sections.erase(name);
    const UserErrorException e = readError(xml);
    EXPECT_EQ(e.code(), 61) << name;
    EXPECT_EQ(e.text(), std::string("Missing section: ") + name);
    EXPECT_EQ(std::string(e.what()), std::string("61: Missing section: ") + name);
    EXPECT_FALSE(fs::exists(plain())) << name;
  }
  // Optional sections may be missing.
  test::DbaseXml without;
  for (const char* name : {"dbase", "similar_types", "prefixes", "publishers", "wingspans", "fixes"})
    without.sections.erase(name);
  EXPECT_TRUE(read(without));

  test::DbaseXml blank;
  blank.sections["heavy"] = R"(<hvy types=" , "/><hvy/>)";
  UserErrorException e = readError(blank);
  EXPECT_EQ(e.code(), 61);
  EXPECT_EQ(e.text(), "In XML file section [heavy], element [hvy], attribute [types] is empty.");

  test::writeEncrypted(enc(), "<other><aircrafts/></other>");
  try {
    gf_readDbaseFile(enc());
    ADD_FAILURE() << "no error";
  } catch (const UserErrorException& rootError) {
    EXPECT_EQ(rootError.code(), 61);
    EXPECT_EQ(rootError.text(), "XML root missing: root");
  }
  EXPECT_FALSE(fs::exists(plain()));
}

TEST_F(DbaseReader, FixesMapWrongCodesWithoutGrowingTheTable) {
  test::DbaseXml xml;
  xml.sections["fixes"] = R"(<fx wro="A-320" cor="A320"/><fx wro="A-320" cor="A321"/>)"
                          R"(<fx wro="B738" cor="A321"/><fx wro="XXXX" cor="NOPE"/><fx wro="YYYY" cor=""/>)";
  ASSERT_TRUE(read(xml));
  EXPECT_EQ(modelFix("A-320"), "A320");
  const size_t before = modelCount();
  EXPECT_EQ(modelIndex("A-320"), modelIndex("A320"));
  EXPECT_EQ(modelCount(), before);
  // A wrong code that is also valid is found in the table first.
  EXPECT_EQ(modelCode(modelIndex("B738")), "B738");
  EXPECT_EQ(modelCount(), before);
  // Neither valid nor fixed: a new entry, of category Light.
  const uint16_t fresh = modelIndex("ZZZZ");
  EXPECT_EQ(fresh, before);
  EXPECT_EQ(modelCount(), before + 1);
  EXPECT_EQ(categoryOfModel(fresh), kCategoryLight);
  EXPECT_EQ(modelCode(static_cast<uint16_t>(before + 1)), "");  // beyond the table

  const std::string text = log.text();
  EXPECT_NE(text.find("wrong part of fix: 'A-320', already exists, skipped"), std::string::npos);
  EXPECT_NE(text.find("wrong fix XXXX -> NOPE, the latter is not valid"), std::string::npos);
  EXPECT_NE(text.find("wrong fix YYYY -> , the latter is not valid"), std::string::npos);
  EXPECT_NE(text.find("    2 fixes"), std::string::npos);

  // Before a dbase is read, nothing is fixed.
  gf_resetCodeTables();
  EXPECT_NE(modelIndex("A-320"), modelIndex("A320"));
}

TEST_F(DbaseReader, CategoryPrecedence) {
  test::DbaseXml xml;
  xml.sections["aircrafts"] = R"(<aircraft types="ALL5,NOLG,BRH,RH,H,NONE"/>)";
  xml.sections["large"] = R"(<lar types="ALL5"/>)";
  xml.sections["heavy"] = R"(<hvy types="ALL5,NOLG"/>)";
  xml.sections["buzjet"] = R"(<bzj types="ALL5,NOLG,BRH"/>)";
  xml.sections["rotorcraft"] = R"(<rot types="ALL5,NOLG,BRH,RH"/>)";
  xml.sections["high_performance"] = R"(<hpf types="ALL5,NOLG,BRH,RH,H"/>)";
  ASSERT_TRUE(read(xml));
  EXPECT_EQ(categoryOfModelCode("ALL5"), kCategoryLarge);
  EXPECT_EQ(categoryOfModelCode("NOLG"), kCategoryHeavy);
  EXPECT_EQ(categoryOfModelCode("BRH"), kCategoryBuzjets);
  EXPECT_EQ(categoryOfModelCode("RH"), kCategoryRotorcraft);
  EXPECT_EQ(categoryOfModelCode("H"), kCategoryHighPerf);
  EXPECT_EQ(categoryOfModelCode("NONE"), kCategoryLight);
  EXPECT_EQ(categoryName(kCategoryHighPerf), "HighPerf");
}

TEST_F(DbaseReader, WingspansKeepTheFirstEntryAndTheLargestMaximum) {
  test::DbaseXml xml;
  xml.sections["wingspans"] = R"(<wingspan type="A320" meters="35.8"/><wingspan type="A320" meters="80"/>)"
                              R"(<wingspan type="NOPE" meters="10"/><wingspan type="" meters="10"/>)"
                              R"(<wingspan type="C172" meters="11"/>)";
  ASSERT_TRUE(read(xml));
  EXPECT_DOUBLE_EQ(halfWingspan(modelIndex("A320")), 35.8 * 0.5 * kNmPerMetre);
  EXPECT_DOUBLE_EQ(halfWingspan(modelIndex("C172")), 11 * 0.5 * kNmPerMetre);
  EXPECT_DOUBLE_EQ(maxHalfWingspan, 80 * 0.5 * kNmPerMetre);
  EXPECT_DOUBLE_EQ(halfWingspan(modelIndex("A321")), 0.0);
  EXPECT_DOUBLE_EQ(halfWingspan(static_cast<uint16_t>(kWingspanSlots)), 35.0);
  const std::string text = log.text();
  EXPECT_NE(text.find("wingspan model NOPE is not valid, skipped"), std::string::npos);
  EXPECT_NE(text.find("wingspan model  is not valid, skipped"), std::string::npos);
  EXPECT_NE(text.find("hwsp: 2700 what: "), std::string::npos);
}

TEST_F(DbaseReader, RecordsAreSortedAndTheFirstOfEqualRegistrationsStays) {
  test::DbaseXml xml;
  xml.sections["dbase"] = R"(<d r="PH-BXB" a="KLM" m="B738"/>)"
                          R"(<d r="D-AIBA" a="DLH" o="KLM" m="A320" c="true"/>)"
                          R"(<d r="PH-BXB" a="DLH" m="A321"/>)"
                          R"(<d r="N123AB" m="C172" c="0"/>)";
  ASSERT_TRUE(read(xml));
  ASSERT_EQ(dbaseRecords.size(), 3u);
  EXPECT_EQ(dbaseRecords[0].reg, "D-AIBA");
  EXPECT_EQ(dbaseRecords[1].reg, "N123AB");
  EXPECT_EQ(dbaseRecords[2].reg, "PH-BXB");

  const auto klm = lookupRegistration("PHBXB");
  ASSERT_TRUE(klm);
  EXPECT_EQ(airlineCode(klm->airline), "KLM");
  EXPECT_EQ(modelCode(klm->acType), "B738");
  EXPECT_EQ(klm->airline2, 0);
  EXPECT_EQ(klm->cargo, 0);
  EXPECT_EQ(klm->fromRegTable, 1);

  const auto dlh = lookupRegistration("D-AIBA");
  ASSERT_TRUE(dlh);
  EXPECT_EQ(airlineCode(dlh->airline2), "KLM");
  EXPECT_EQ(dlh->cargo, 1);
  EXPECT_EQ(lookupRegistration("N123AB")->airline, 0);
  EXPECT_NE(log.text().find("    3 dbase records read"), std::string::npos);
}

}  // namespace
}  // namespace orv
