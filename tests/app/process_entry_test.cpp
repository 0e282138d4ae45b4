#include <gtest/gtest.h>

#include "app/headless_run.h"
#include "app/working_folder.h"
#include "foundation/user_paths.h"
#include "test_support.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using test::readFile;

class HeadlessRun : public testing::Test {
 protected:
  void TearDown() override { fs::current_path(previous); }
  test::AppDataOverride appData;
  test::TempDir work;
  fs::path previous = fs::current_path();
};

TEST_F(HeadlessRun, ARunPreparesTheWorkingFolderAndEndsCleanly) {
  fs::create_directory(work / "docs");
  test::writeFile(work / "Log.txt", "the log of the run before");
  EXPECT_EQ(lf_runProcess(work.path(), {"--seconds", "1"}), 0);

  const std::string log = readFile(work / "Log.txt");
  EXPECT_NE(log.find("(utc) Orvane version 12.5.4 for MSFS 2020/2024\n"), std::string::npos) << log;
  EXPECT_NE(log.find("not found, creating new with default values:"), std::string::npos);
  EXPECT_NE(log.find("Orvane runs headless for 1 seconds\n"), std::string::npos);
  EXPECT_NE(log.find(" Orvane ends\n"), std::string::npos);
  EXPECT_EQ(readFile(work / "Log0.txt"), "the log of the run before");
  EXPECT_TRUE(fs::exists(appData.path() / "Orvane" / "parameters.xml"));
  for (const char* folder : {"output/info", "output/errors", "airports/learned/stock", "input/my_regcodes"})
    EXPECT_TRUE(fs::is_directory(work / folder)) << folder;
}

TEST_F(HeadlessRun, WithoutDocsTheRunEndsWithTheFolderError) {
  EXPECT_EQ(lf_runProcess(work.path(), {"--seconds", "1"}), 1);
  EXPECT_NE(readFile(work / "Log.txt").find("Error 41: Orvane must be run from the Orvane folder!\n"),
            std::string::npos);
}

TEST(WorkingFolder, CommandLineThenEnvironmentThenProgramFolder) {
  EXPECT_EQ(lf_workingFolder({"--workdir", "/some/where"}), fs::path("/some/where"));
  setenv("ORVANE_HOME", "/from/env", 1);
  EXPECT_EQ(lf_workingFolder({}), fs::path("/from/env"));
  unsetenv("ORVANE_HOME");
  EXPECT_TRUE(fs::exists(lf_workingFolder({})));
}

}  // namespace
}  // namespace orv
