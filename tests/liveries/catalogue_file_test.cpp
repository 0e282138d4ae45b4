#include <gtest/gtest.h>

#include <vector>

#include "catalogue_fixture.h"
#include "foundation/user_error.h"
#include "liveries/catalogue_file.h"
#include "refdata/code_tables.h"
#include "test_support.h"

namespace orv {
namespace {

using test::Livery;

LiveryRecord record(const char* airline, const char* airline2, const char* model, const char* title,
                    const char* regcode = "", bool cargo = false) {
  LiveryRecord r;
  r.code.airline = airlineIndex(airline);
  r.code.airline2 = airlineIndex(airline2);
  r.code.acType = modelIndex(model);
  r.code.cargo = cargo ? 1 : 0;
  r.title = title;
  r.regcode = regcode;
  r.folderNumber = 3;
  return r;
}

// What a record says, as texts, for comparisons.
std::vector<std::string> fields(const LiveryRecord& r) {
  return {airlineCode(r.code.airline),    airlineCode(r.code.airline2),  modelCode(r.code.acType), r.title, r.regcode,
          r.code.cargo ? "cargo" : "pax", std::to_string(r.folderNumber)};
}

int userErrorCode(const std::function<void()>& read, std::string* text) {
  try {
    read();
  } catch (const UserErrorException& e) {
    *text = e.what();
    return e.code();
  }
  return 0;
}

TEST(CatalogueFile, WritesAndReadsBackInTheCatalogueOrder) {
  test::TempDir dir;
  test::LogCapture log;
  const auto file = dir / "LiveriesScanned.xml";
  // Indexes given in an order unlike the texts' order, so that sorting by index would show.
  liveriesScannedList = {
      record("KLM", "", "B738", "Boeing 737-800 KLM"),
      record("DLH", "CLH", "CRJ9", "CRJ900 Lufthansa Regional", "D-ACNA"),
      record("DLH", "", "B744", "B747-400F Lufthansa Cargo", "", true),
      record("DLH", "", "A320", "Airbus A320 Lufthansa D-AIZA", "D-AIZA"),
      record("DLH", "", "A320", "Airbus A320 Lufthansa"),
      record("DL", "", "B738", "short airline code first"),
      record("DLH", "", "A320", "Airbus A320 Lufthansa", "D-AIZB"),  // twin with another regcode
  };
  gf_saveLiveriesScanned(file);
  EXPECT_NE(log.text().find("7 liveries in " + file.string()), std::string::npos);

  const std::string xml = test::readFile(file);
  EXPECT_NE(xml.find(R"(<l a="DLH" o="CLH" m="CRJ9" t="CRJ900 Lufthansa Regional" r="D-ACNA" />)"), std::string::npos)
      << xml;
  EXPECT_NE(xml.find(R"(<l a="DLH" m="B744" c="true" t="B747-400F Lufthansa Cargo" />)"), std::string::npos);
  EXPECT_NE(xml.find(R"(<info name="author" value="Orvane" />)"), std::string::npos);
  EXPECT_NE(xml.find(R"(<info name="version" value="12.5.4" />)"), std::string::npos);
  EXPECT_NE(xml.find(R"(<info name="sim" value="1" />)"), std::string::npos);
  EXPECT_LT(xml.find("<meta>"), xml.find("<liveries>")) << "meta is the first child of root";

  liveriesScannedList.clear();
  gf_readLiveriesScanned(file);
  std::vector<std::vector<std::string>> read;
  for (const auto& r : liveriesScannedList) read.push_back(fields(r));
  const std::vector<std::vector<std::string>> expected{
      {"DL", "", "B738", "short airline code first", "", "pax", "0"},
      {"DLH", "", "A320", "Airbus A320 Lufthansa", "", "pax", "0"},
      {"DLH", "", "A320", "Airbus A320 Lufthansa", "D-AIZB", "pax", "0"},
      {"DLH", "", "A320", "Airbus A320 Lufthansa D-AIZA", "D-AIZA", "pax", "0"},
      {"DLH", "", "B744", "B747-400F Lufthansa Cargo", "", "cargo", "0"},
      {"DLH", "CLH", "CRJ9", "CRJ900 Lufthansa Regional", "D-ACNA", "pax", "0"},
      {"KLM", "", "B738", "Boeing 737-800 KLM", "", "pax", "0"},
  };
  EXPECT_EQ(read, expected);
  EXPECT_NE(log.text().find("    7 liveries read from " + file.string()), std::string::npos);

  // The writer sorted the list too: written again from what was read, the records are the same.
  const auto again = dir / "again.xml";
  gf_saveLiveriesScanned(again);
  const auto records = [](const std::string& text) { return text.substr(text.find("<liveries>")); };
  EXPECT_EQ(records(test::readFile(again)), records(xml));
}

TEST(CatalogueFile, ReadsAttributesByTheirRulesAndRefusesBrokenFiles) {
  test::TempDir dir;
  test::LogCapture log;
  const auto file = dir / "LiveriesScanned.xml";
  test::writeFile(file, R"(<root><meta><info name="sim" value="nonsense"/></meta><liveries>
      <l a="DLH" m="A320" c="false" t="pax by word"/>
      <x a="DLH" m="A320" c="true" t="any element name counts" r="D-AIZA"/>
      <l a="DLH" m="A320" t="no c is pax" o=""/>
    </liveries></root>)");
  gf_readLiveriesScanned(file);
  ASSERT_EQ(liveriesScannedList.size(), 3u);
  const std::vector<LiveryRecord> read(liveriesScannedList.begin(), liveriesScannedList.end());
  EXPECT_EQ(read[0].title, "any element name counts");
  EXPECT_EQ(read[0].code.cargo, 1);
  EXPECT_EQ(read[0].regcode, "D-AIZA");
  EXPECT_EQ(read[1].title, "no c is pax");
  EXPECT_EQ(read[1].code.cargo, 0);
  EXPECT_EQ(read[1].code.airline2, 0) << "an empty or absent o is no second airline";
  EXPECT_EQ(read[2].code.cargo, 0) << "c=\"false\"";
  for (const auto& r : read) EXPECT_EQ(r.code.fromRegTable, 0);

  std::string text;
  EXPECT_EQ(userErrorCode([&] { gf_readLiveriesScanned(dir / "missing.xml"); }, &text), 51);
  EXPECT_EQ(text, "51: File " + (dir / "missing.xml").string() + " not found");
  test::writeFile(file, "<root><liveries><l a='DLH'");
  EXPECT_EQ(userErrorCode([&] { gf_readLiveriesScanned(file); }, &text), 51) << "not XML";

  test::writeFile(file, "<root><meta/></root>");
  EXPECT_EQ(userErrorCode([&] { gf_readLiveriesScanned(file); }, &text), 52);
  EXPECT_EQ(text, "52: " + file.string() + " does not contain a <liveries> section");

  test::writeFile(file, "<root><liveries>  </liveries></root>");
  EXPECT_EQ(userErrorCode([&] { gf_readLiveriesScanned(file); }, &text), 533);
  EXPECT_EQ(text, "533: " + file.string() + " does not contain liveries");

  test::writeFile(file,
                  R"(<root><liveries><l a="DLH" m="A320" t="ok"/><livery a="DLH" t="no model"/></liveries></root>)");
  EXPECT_EQ(userErrorCode([&] { gf_readLiveriesScanned(file); }, &text), 999);
  EXPECT_EQ(text, "Missing required attribute 'm' in <livery>");
  EXPECT_TRUE(liveriesScannedList.empty()) << "a refused catalogue leaves none of its records behind";
  test::writeFile(file, R"(<root><liveries><l a="DLH" m="A320" t=""/></liveries></root>)");
  EXPECT_EQ(userErrorCode([&] { gf_readLiveriesScanned(file); }, &text), 999);
  EXPECT_EQ(text, "Missing required attribute 't' in <l>") << "an empty title is none";

  EXPECT_EQ(userErrorCode([] { lf_readLiveriesScannedText("<root><liveries/></root>", "memory"); }, &text), 533);
  EXPECT_EQ(text, "533: memory does not contain liveries");
}

TEST(CatalogueFile, AnEmptyListWritesNoFile) {
  test::TempDir dir;
  test::LogCapture log;
  gf_saveLiveriesScanned(dir / "LiveriesScanned.xml");
  EXPECT_FALSE(std::filesystem::exists(dir / "LiveriesScanned.xml"));
  EXPECT_EQ(log.text().find("liveries in"), std::string::npos);
}

}  // namespace
}  // namespace orv
