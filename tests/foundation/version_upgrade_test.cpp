#include <gtest/gtest.h>

#include "foundation/version_data.h"
#include "foundation/version_upgrade.h"
#include "parameter_fixture.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

class VersionUpgrade : public test::ParameterTest {
 protected:
  void SetUp() override {
    ParameterTest::SetUp();
    window.createControl({SCAN_LIVERIES.controlId, ControlKind::Check});
    window.createControl({SCAN_AIRPORTS.controlId, ControlKind::Check});
    fs::create_directories("input");
    for (const char* name : {"airports.enc", "AIG-regcodes.enc", "dbase.enc"}) writeFile(fs::path("input") / name, "x");
    fs::create_directories("new_version/sub");
    writeFile("new_version/sub/setup.exe", "x");
  }
  // A file as an older program left it: its version, a changed radius, scans switched off.
  void storeOldFile(const std::string& version) {
    writeFile(file(), "<root><parameters><parameter name=\"PROGRAM_VERSION\" value=\"" + version +
                          "\"/><parameter name=\"RANGE\" value=\"10\"/><parameter name=\"SCAN_LIVERIES\" "
                          "value=\"false\"/><parameter name=\"SCAN_AIRPORTS\" value=\"false\"/></parameters></root>");
  }
  int dataFiles() const {
    int n = 0;
    for (const char* name : {"airports.enc", "AIG-regcodes.enc", "dbase.enc"}) n += fs::exists(fs::path("input") / name);
    return n;
  }
  std::string storedVersion() const { return test::valueIn(readFile(file()), "PROGRAM_VERSION"); }
};

TEST_F(VersionUpgrade, AFirstStartScansLiveriesAndAirports) {
  SCAN_LIVERIES.defaultValue = false;  // so that the defaults alone cannot pass this test
  SCAN_AIRPORTS.defaultValue = false;
  gf_readAndUpgradeParameters();
  SCAN_LIVERIES.defaultValue = true;
  SCAN_AIRPORTS.defaultValue = true;
  EXPECT_TRUE(SCAN_LIVERIES.value);
  EXPECT_TRUE(SCAN_AIRPORTS.value);
  EXPECT_TRUE(window.control(SCAN_LIVERIES.controlId)->checked);
  EXPECT_TRUE(window.control(SCAN_AIRPORTS.controlId)->checked);
  const std::string xml = readFile(file());
  EXPECT_NE(xml.find("name=\"SCAN_LIVERIES\" value=\"true\""), std::string::npos);
  EXPECT_NE(xml.find("name=\"SCAN_AIRPORTS\" value=\"true\""), std::string::npos);
  EXPECT_EQ(storedVersion(), "12.5.4");
  EXPECT_EQ(dataFiles(), 3);
}

TEST_F(VersionUpgrade, AFileTooOldToConvertIsReplacedByDefaults) {
  storeOldFile("10.9.9");
  gf_readAndUpgradeParameters();
  EXPECT_EQ(RANGE.value, 40);
  EXPECT_TRUE(SCAN_LIVERIES.value);
  EXPECT_TRUE(SCAN_AIRPORTS.value);
  EXPECT_EQ(storedVersion(), "12.5.4");
  EXPECT_NE(readFile(file()).find("name=\"RANGE\" value=\"40\""), std::string::npos);
  EXPECT_EQ(dataFiles(), 0);
  const std::string text = log.text();
  EXPECT_NE(text.find("This is a version update from 10.9.9 -> 12.5.4\n"), std::string::npos);
  EXPECT_NE(text.find("\n\nYour previous version was too old to convert the old text box parameters to the newdropbox "
                      "values.\nOrvane re-starts with default parameter values ...\n\n"),
            std::string::npos)
      << text;
}

TEST_F(VersionUpgrade, OlderVersionsKeepTheirValues) {
  storeOldFile("11.0.2");
  gf_readAndUpgradeParameters();
  EXPECT_EQ(RANGE.value, 10);
  EXPECT_FALSE(SCAN_LIVERIES.value);
  EXPECT_EQ(storedVersion(), "12.5.4");
  EXPECT_EQ(dataFiles(), 0);  // data of versions before 12 are fetched anew
  EXPECT_FALSE(fs::exists("new_version"));

  storeOldFile("12.0.0");
  fs::create_directories("new_version");
  for (const char* name : {"airports.enc", "AIG-regcodes.enc", "dbase.enc"}) writeFile(fs::path("input") / name, "x");
  gf_readAndUpgradeParameters();
  EXPECT_EQ(RANGE.value, 10);
  EXPECT_EQ(dataFiles(), 3);
  EXPECT_FALSE(fs::exists("new_version"));
}

TEST_F(VersionUpgrade, ANewerOrTheSameVersionChangesNothingElse) {
  storeOldFile("13.0.0");
  gf_readAndUpgradeParameters();
  EXPECT_EQ(storedVersion(), "12.5.4");
  EXPECT_EQ(RANGE.value, 10);
  EXPECT_EQ(dataFiles(), 3);
  EXPECT_TRUE(fs::exists("new_version/sub/setup.exe"));
  EXPECT_EQ(log.text().find("version update"), std::string::npos);

  storeOldFile("12.5.4");
  gf_readAndUpgradeParameters();
  EXPECT_TRUE(fs::exists("new_version"));
  EXPECT_EQ(dataFiles(), 3);
}

TEST_F(VersionUpgrade, ADamagedVersionCountsAsOld) {
  storeOldFile("twelve");
  gf_readAndUpgradeParameters();
  EXPECT_EQ(RANGE.value, 40);
  EXPECT_EQ(storedVersion(), "12.5.4");
  EXPECT_NE(log.text().find("VersionData exception: invalid version format"), std::string::npos);
}

TEST(VersionData, ParsingAndOrder) {
  EXPECT_EQ(VersionData("12.5.4"), (VersionData{12, 5, 4}));
  EXPECT_EQ(VersionData(""), VersionData{});
  EXPECT_EQ(VersionData("1.2"), VersionData{});
  EXPECT_EQ(VersionData("1.2.3.4"), VersionData{});
  EXPECT_EQ(VersionData("99999999999.1.1"), VersionData{});  // does not fit 32 bits
  EXPECT_LT((VersionData{11, 9, 9}), (VersionData{12, 0, 0}));
  EXPECT_LT((VersionData{12, 0, 9}), (VersionData{12, 1, 0}));
  EXPECT_EQ((VersionData{1, 20, 3}).text(), "1.20.3");
}

}  // namespace
}  // namespace orv
