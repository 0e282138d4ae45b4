#include <gtest/gtest.h>
#if !defined(_WIN32)
#include <sys/resource.h>
#endif

#include <csignal>
#include <pugixml.hpp>

#include "parameter_fixture.h"

namespace orv {
namespace {

using test::readFile;
using test::writeFile;

class ParameterStore : public test::ParameterTest {};

using test::valueIn;

TEST_F(ParameterStore, AMissingFileIsCreatedWithDefaultsInFileOrder) {
  ASSERT_TRUE(gf_readParameters());
  const std::string xml = readFile(file());
  EXPECT_EQ(xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n  <parameters>\n"
                      "    <parameter name=\"RANDOM\" value=\"true\" />\n"
                      "    <parameter name=\"ALWAYS_ON_TOP\" value=\"false\" />\n",
                      0),
            0u)
      << xml;
  // The lists follow each other: last check box, first int, last string, the two edit strings.
  EXPECT_LT(xml.find("\"PARK_SOFT\""), xml.find("\"MAIN_WINDOW_X\""));
  EXPECT_LT(xml.find("\"MAX_FIT\""), xml.find("\"MATCHING_DEPTH\""));
  EXPECT_LT(xml.find("\"AIRP_HEIGHT\""), xml.find("\"PROGRAM_VERSION\""));
  EXPECT_LT(xml.find("\"DESTINATION\""), xml.find("\"BLOCK_CALLSIGN\""));
  EXPECT_EQ(valueIn(xml, "PROGRAM_VERSION"), "12.5.4");
  EXPECT_EQ(valueIn(xml, "LAST_EPOCH_TIME:"), "0");
  EXPECT_EQ(valueIn(xml, "AI_PACKAGE_SELECTOR"), "AIG, FSLTL, JF, MTL");
  EXPECT_EQ(valueIn(xml, "parking_percentage"), "<missing>");
  EXPECT_EQ(valueIn(xml, "ALL_INSTALL_PATH"), "<missing>");

  const std::string text = log.text();
  EXPECT_NE(text.find(file().string() + " not found, creating new with default values:"), std::string::npos);
  EXPECT_NE(text.find("PORT_NUMBER=\"10747\"\n"), std::string::npos);
  EXPECT_NE(text.find(" parameters ****"), std::string::npos);
}

TEST_F(ParameterStore, ValuesAreReadClampedAndNewParametersAppended) {
  writeFile(file(),
            "<?xml version=\"1.0\"?>\n<root><parameters>\n"
            "<parameter name=\"HOLDING_THRESHOLD_METERS\" value=\"99999\"/>\n"
            "<parameter name=\"MAX_HOLDING_MINUTES\" value=\"-3\"/>\n"
            "<parameter name=\"CUSTOM_PARKING_PERCENTAGE\" value=\"abc\"/>\n"
            "<parameter name=\"RANGE\" value=\"1\"/>\n"
            "<parameter name=\"MAIN_WINDOW_X\"/>\n"
            "<parameter name=\"RANDOM\" value=\"false\"/>\n"
            "<parameter name=\"AEROWINX\" value=\"true\"/>\n"
            "<parameter name=\"DESTINATION\" value=\"EHAM\"/>\n"
            "<parameter name=\"BLOCK_CALLSIGN\" value=\"KLM 12 &quot;x&quot; é\"/>\n"
            "<parameter name=\"SOMETHING_OLD\" value=\"7\"/>\n"
            "</parameters></root>\n");
  ASSERT_FALSE(gf_readParameters());
  EXPECT_EQ(HOLDING_THRESHOLD_METERS.value, 4000);
  EXPECT_EQ(MAX_HOLDING_MINUTES.value, 1);
  EXPECT_EQ(CUSTOM_PARKING_PERCENTAGE.value, 0);  // a bad number reads as 0
  EXPECT_EQ(RANGE.value, 2);
  EXPECT_EQ(gv_rangeMeters.load(), 2 * 1852);
  EXPECT_DOUBLE_EQ(gv_rangeNm.load(), 2.0);
  EXPECT_EQ(MAIN_WINDOW_X.value, 0);  // found without a value
  EXPECT_FALSE(RANDOM.value);
  EXPECT_TRUE(AEROWINX.value);
  EXPECT_EQ(DESTINATION.value, "EHAM");
  EXPECT_EQ(BLOCK_CALLSIGN.value, "KLM 12 \"x\" é");
  EXPECT_EQ(PORT_NUMBER.value, "10747");  // missing: default

  // Missing parameters were appended with their defaults; what was there stays.
  const std::string xml = readFile(file());
  EXPECT_EQ(valueIn(xml, "PORT_NUMBER"), "10747");
  EXPECT_EQ(valueIn(xml, "SIM_CHOICE"), "MSFS 2020");
  EXPECT_EQ(valueIn(xml, "AEROWINX"), "true");
  EXPECT_EQ(valueIn(xml, "SOMETHING_OLD"), "7");
  EXPECT_EQ(valueIn(xml, "HOLDING_THRESHOLD_METERS"), "99999");  // reading never rewrites a value

  const std::string text = log.text();
  EXPECT_NE(text.find("from '" + file().string() + "'\nRANDOM=false\n"), std::string::npos) << text;
  EXPECT_NE(text.find("HOLDING_THRESHOLD_METERS=4000\n"), std::string::npos);
  EXPECT_NE(text.find("BLOCK_CALLSIGN=\"KLM 12 \"x\" é\"\n"), std::string::npos);
}

TEST_F(ParameterStore, ReadValuesAreShownOnTheirControls) {
  window.createControl({AEROWINX.controlId, ControlKind::Check});
  window.createControl({RANGE.controlId, ControlKind::Combo});
  window.createControl({SIM_CHOICE.controlId, ControlKind::Combo});
  writeFile(file(),
            "<root><parameters><parameter name=\"AEROWINX\" value=\"true\"/><parameter name=\"RANGE\" value=\"25\"/>"
            "<parameter name=\"SIM_CHOICE\" value=\"MSFS 2024\"/></parameters></root>");
  gf_readParameters();
  EXPECT_TRUE(window.control(AEROWINX.controlId)->checked);
  EXPECT_EQ(window.control(RANGE.controlId)->text, "25");
  EXPECT_EQ(window.control(SIM_CHOICE.controlId)->text, "MSFS 2024");
}

TEST_F(ParameterStore, AnUnparsableFileIsKeptAsAGenerationAndReplaced) {
  const std::string broken = "<root><parameters><parameter name=\"RANGE\" value=\"25\"></root>";
  writeFile(file(), broken);
  EXPECT_TRUE(gf_readParameters());
  EXPECT_EQ(readFile(file().parent_path() / "parameters0.xml"), broken);
  EXPECT_EQ(valueIn(readFile(file()), "RANGE"), "40");
  EXPECT_EQ(RANGE.value, 40);
}

TEST_F(ParameterStore, SavingOneParameterChangesOnlyIt) {
  gf_readParameters();
  std::string before = readFile(file());
  RANGE.set(65);
  saveInt(RANGE);
  std::string after = readFile(file());
  EXPECT_EQ(valueIn(after, "RANGE"), "65");
  after.replace(after.find("\"65\""), 4, "\"40\"");
  EXPECT_EQ(after, before);
  EXPECT_NE(log.text().find("RANGE=65\n"), std::string::npos);

  // Every element of that name is set, and a missing value attribute is created.
  writeFile(file(),
            "<root><parameters><parameter name=\"WEEK\"/><parameter name=\"WEEK\" value=\"false\"/></parameters></root>");
  WEEK.value = true;
  saveBool(WEEK);
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_file(file().c_str()));
  int weeks = 0;
  for (auto p : doc.child("root").child("parameters").children("parameter")) {
    EXPECT_STREQ(p.attribute("value").as_string(), "true");
    ++weeks;
  }
  EXPECT_EQ(weeks, 2);

  // A file that does not load is kept as a generation and started anew with this one parameter.
  writeFile(file(), "not xml");
  saveString(DESTINATION);
  EXPECT_EQ(readFile(file().parent_path() / "parameters0.xml"), "not xml");
  EXPECT_EQ(readFile(file()),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n  <parameters>\n"
            "    <parameter name=\"DESTINATION\" value=\"\" />\n  </parameters>\n</root>\n");
}

TEST_F(ParameterStore, AFileWithoutRootIsReadAndRewrittenWithRootAtTheFirstChange) {
  writeFile(file(),
            "<?xml version=\"1.0\"?>\n<parameters><parameter name=\"RANGE\" value=\"25\"/>"
            "<parameter name=\"WEEK\" value=\"true\"/></parameters>\n");
  ASSERT_FALSE(gf_readParameters());
  EXPECT_EQ(RANGE.value, 25);
  EXPECT_TRUE(WEEK.value);
  EXPECT_EQ(readFile(file()).find("<root>"), std::string::npos);  // reading keeps its form

  PARK_SOFT.value = true;
  saveBool(PARK_SOFT);
  const std::string xml = readFile(file());
  EXPECT_NE(xml.find("<root>\n  <parameters>"), std::string::npos) << xml;
  EXPECT_EQ(valueIn(xml, "PARK_SOFT"), "true");
  EXPECT_EQ(valueIn(xml, "RANGE"), "25");
  EXPECT_EQ(valueIn(xml, "WEEK"), "true");
  EXPECT_EQ(valueIn(xml, "PORT_NUMBER"), "10747");
  EXPECT_NE(log.text().find("PARK_SOFT=true\n\nPlacing a root level around a new parameters.xml to make it 100% xml "
                            "compliance\n\n"),
            std::string::npos);
}

#if !defined(_WIN32)
// A write that fails half-way (the file size limit of the process stops it) leaves the
// old file whole and no temporary file behind. Windows has no file size limit to set.
TEST_F(ParameterStore, AnInterruptedSaveLeavesTheOldFileIntact) {
  gf_readParameters();
  const std::string before = readFile(file());
  ASSERT_GT(before.size(), 1024u);

  auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  rlimit small = old;
  small.rlim_cur = 1024;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  RANGE.set(80);
  saveInt(RANGE);
  gf_writeParameters(false);
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, previousHandler);

  EXPECT_EQ(readFile(file()), before);
  int entries = 0;
  for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(file().parent_path())) ++entries;
  EXPECT_EQ(entries, 1);
}
#endif

TEST_F(ParameterStore, ASaveThatCannotReplaceTheFileSaysSo) {
  std::filesystem::create_directories(file() / "in the way");
  DESTINATION.value = "LFPG";
  saveString(DESTINATION);
  EXPECT_TRUE(std::filesystem::is_directory(file()));
  EXPECT_NE(log.text().find("\n==> saving: " + file().string() + " failed\n"), std::string::npos) << log.text();
}

TEST_F(ParameterStore, DerivedValues) {
  gf_setRange(500);
  EXPECT_EQ(RANGE.value, 100);
  EXPECT_EQ(gv_rangeMeters.load(), 185200);
  gf_setMaxFitHours(1.5f);
  EXPECT_EQ(MAX_FIT.value, 2);
  gf_setMaxFitHours(24.0f);
  EXPECT_EQ(MAX_FIT.value, 47);
  MAX_FIT.set(0);
  gf_maxFitFromStored();
  EXPECT_FLOAT_EQ(MAX_FIT_FL.value, 0.5f);
  EXPECT_EQ(valueIn(readFile(file()), "MAX_FIT"), "47");
  EXPECT_EQ(AIRP_HEIGHT.maxValue, AIRP_HEIGHT.choices.back()) << "the largest choice can be stored";
}

}  // namespace
}  // namespace orv
