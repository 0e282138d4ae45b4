#include "foundation/folder_utils.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

// a.txt, empty/, full/b.txt, full/deep/c.txt
void makeTree(const fs::path& root) {
  fs::create_directories(root / "empty");
  fs::create_directories(root / "full" / "deep");
  test::writeFile(root / "a.txt", "a");
  test::writeFile(root / "full" / "b.txt", "b");
  test::writeFile(root / "full" / "deep" / "c.txt", "c");
}

TEST(FolderUtils, CountAndRemoveFiles) {
  test::TempDir dir;
  EXPECT_EQ(gf_countEntries(dir / "missing"), 0u);
  EXPECT_EQ(gf_countEntries(dir.path()), 0u);
  makeTree(dir.path());
  EXPECT_EQ(gf_countEntries(dir.path()), 3u);

  gf_removeFilesIn(dir.path());
  EXPECT_FALSE(fs::exists(dir / "a.txt"));
  EXPECT_TRUE(fs::exists(dir / "empty"));
  EXPECT_TRUE(fs::exists(dir.path() / "full" / "b.txt"));
  EXPECT_EQ(gf_countEntries(dir.path()), 2u);
}

TEST(FolderUtils, RemoveEntriesBelowKeepsFoldersThatWereFullAtTheirTurn) {
  test::LogCapture log;
  test::TempDir dir;
  makeTree(dir.path());
  gf_removeEntriesBelow(dir.path());

  EXPECT_TRUE(fs::exists(dir.path()));
  EXPECT_FALSE(fs::exists(dir / "a.txt"));
  EXPECT_FALSE(fs::exists(dir / "empty"));
  // The walk went on into the folders it could not remove.
  EXPECT_TRUE(fs::is_empty(dir.path() / "full" / "deep"));
  EXPECT_EQ(gf_countEntries(dir / "full"), 1u);
  const std::string text = log.text();
  EXPECT_NE(text.find("==> Failed to remove " + (dir.path() / "full").string() + " ("), std::string::npos) << text;
  EXPECT_NE(text.find("==> Failed to remove " + (dir.path() / "full" / "deep").string() + " ("), std::string::npos);

  // Each further walk takes one more level of emptied folders.
  gf_removeEntriesBelow(dir.path());
  EXPECT_EQ(gf_countEntries(dir.path()), 1u);  // "deep" was still in "full" at its turn
  gf_removeEntriesBelow(dir.path());
  EXPECT_EQ(gf_countEntries(dir.path()), 0u);

  // A path that is no folder is no error.

  test::writeFile(dir / "file.txt", "x");
  const auto errorsBefore = log.text().size();
  gf_removeEntriesBelow(dir / "file.txt");
  gf_removeEntriesBelow(dir / "missing");
  EXPECT_TRUE(fs::exists(dir / "file.txt"));
  EXPECT_EQ(log.text().size(), errorsBefore);
}

}  // namespace
}  // namespace orv
