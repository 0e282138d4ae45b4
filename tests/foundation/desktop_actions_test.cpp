#include "foundation/desktop_actions.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

TEST(DesktopActions, MissingFoldersEndInAMessage) {
  test::AppDataOverride appData;  // no parameters.xml in it
  test::TempDir cwd;              // no docs/Manual.pdf below it
  const fs::path previous = fs::current_path();
  fs::current_path(cwd.path());
  test::LogCapture log;
  EXPECT_FALSE(gf_openInExplorer(cwd / "missing.txt"));
  gf_openParametersFolder();
  gf_openManualFolder();
  fs::current_path(previous);
  // Without a desktop the boxes cannot show; their text reaches the log instead.
  const std::string text = log.text();
  EXPECT_NE(text.find("message box 'Orvane': Could not open folder with parameters.xml\n"), std::string::npos) << text;
  EXPECT_NE(text.find("message box 'Orvane': Could not open local folder with Manual\n"), std::string::npos) << text;
}

TEST(DesktopActions, WritableFolderAndNewVersionText) {
  test::TempDir dir;
  EXPECT_TRUE(gf_folderWritable(dir.path()));
  EXPECT_FALSE(fs::exists(dir / ".write_test.tmp"));
  EXPECT_FALSE(gf_folderWritable(dir / "missing"));
  // This platform has no protected folders, so the installer never needs Administrator rights.
  EXPECT_EQ(gf_newVersionText(dir / "missing"),
            "A new version is available.\nThe installer can be executed normally (no Administrator rights required).");
}

}  // namespace
}  // namespace orv
