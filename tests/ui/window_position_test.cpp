#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <filesystem>
#include <string>

#include "foundation/parameters.h"
#include "foundation/user_paths.h"
#include "ui/window_position.h"
#include "ui_fixture.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

// The value saved in parameters.xml, or "" when the file or the entry is missing.
std::string saved(const char* name) {
  pugi::xml_document doc;
  doc.load_file(gf_parametersPath().c_str());
  return doc.child("root").child("parameters").find_child_by_attribute("parameter", "name", name)
      .attribute("value")
      .as_string();
}

void writePosition(int x, int y) {
  test::writeFile(gf_parametersPath(), "<?xml version=\"1.0\"?>\n<root><parameters>\n"
                                       "<parameter name=\"MAIN_WINDOW_X\" value=\"" + std::to_string(x) + "\"/>\n"
                                       "<parameter name=\"MAIN_WINDOW_Y\" value=\"" + std::to_string(y) + "\"/>\n"
                                       "</parameters></root>\n");
}

using WindowPositionTest = test::UiTest;

TEST_F(WindowPositionTest, AWindowFarOffEveryMonitorComesBackWith48PixelsVisible) {
  const Rect left{-1920, 0, 0, 1040};
  window.setWorkAreas({Rect{0, 0, 1920, 1040}, left});

  // On screen, even partly: neither moved nor saved.
  MAIN_WINDOW_X.set(1500);
  lf_keepOnScreen(400, 20);
  EXPECT_EQ(window.windowRect().left, 0);
  EXPECT_FALSE(fs::exists(gf_parametersPath()));

  MAIN_WINDOW_X.set(20000);
  MAIN_WINDOW_Y.set(100);
  lf_keepOnScreen(400, 20);
  EXPECT_EQ(window.windowRect(), (Rect{1872, 100, 1872 + kWindowWidth, 100 + kWindowHeight}));
  EXPECT_EQ(saved("MAIN_WINDOW_X"), "1872");
  EXPECT_EQ(saved("MAIN_WINDOW_Y"), "100");

  // Far left lands on the left monitor, its right edge 48 pixels inside.
  MAIN_WINDOW_X.set(-20000);
  lf_keepOnScreen(400, 20);
  EXPECT_EQ(MAIN_WINDOW_X.value + kWindowWidth, left.left + 48);

  MAIN_WINDOW_X.set(300);
  MAIN_WINDOW_Y.set(-20000);
  lf_keepOnScreen(400, 20);
  EXPECT_EQ(MAIN_WINDOW_Y.value + kWindowHeight, 48);
  MAIN_WINDOW_Y.set(20000);
  lf_keepOnScreen(400, 20);
  EXPECT_EQ(MAIN_WINDOW_Y.value, 1040 - 48);
  EXPECT_EQ(MAIN_WINDOW_X.value, 300);

  // Larger than the work area: the window's left and top go to the work area's.
  window.setWorkAreas({Rect{100, 0, 700, 400}});
  MAIN_WINDOW_X.set(50);
  MAIN_WINDOW_Y.set(10);
  lf_keepOnScreen(400, 20);
  EXPECT_EQ(window.windowRect().left, 100);
  EXPECT_EQ(window.windowRect().top, 0);
}

TEST_F(WindowPositionTest, AtStartThePositionIsReadForTheWindowAlone) {
  // At a limit: the default, saved.
  writePosition(-30000, 30000);
  lf_readWindowPosition();
  EXPECT_EQ(MAIN_WINDOW_X.value, 400);
  EXPECT_EQ(MAIN_WINDOW_Y.value, 20);
  EXPECT_EQ(saved("MAIN_WINDOW_X"), "400");
  EXPECT_EQ(saved("MAIN_WINDOW_Y"), "20");

  // Beyond a limit is clamped to it, and far off screen comes back.
  writePosition(-99999, 20000);
  lf_readWindowPosition();
  EXPECT_EQ(MAIN_WINDOW_X.value, 400);
  EXPECT_EQ(MAIN_WINDOW_Y.value, 1040 - 48);
  EXPECT_EQ(saved("MAIN_WINDOW_Y"), "992");

  // An older file without root; the missing Y takes its default.
  test::writeFile(gf_parametersPath(), "<parameters><parameter name=\"MAIN_WINDOW_X\" value=\"150\"/></parameters>");
  lf_readWindowPosition();
  EXPECT_EQ(MAIN_WINDOW_X.value, 150);
  EXPECT_EQ(MAIN_WINDOW_Y.value, 20);

  // Without a file nothing is read and nothing is written.
  fs::remove(gf_parametersPath());
  MAIN_WINDOW_X.set(123);
  lf_readWindowPosition();
  EXPECT_EQ(MAIN_WINDOW_X.value, 123);
  EXPECT_FALSE(fs::exists(gf_parametersPath()));
}

TEST_F(WindowPositionTest, AtTheEndTheWindowsPlaceIsSavedForTheNextStart) {
  window.moveWindow(640, 300);
  lf_saveWindowPosition();
  EXPECT_EQ(saved("MAIN_WINDOW_X"), "640");
  EXPECT_EQ(saved("MAIN_WINDOW_Y"), "300");
  MAIN_WINDOW_X.set(0);
  lf_readWindowPosition();
  EXPECT_EQ(MAIN_WINDOW_X.value, 640);

  // Dragged almost off screen: what is saved is a place from which the user can grab it.
  window.moveWindow(1900, 1030);
  lf_saveWindowPosition();
  EXPECT_EQ(saved("MAIN_WINDOW_X"), "1872");
  EXPECT_EQ(saved("MAIN_WINDOW_Y"), "992");
}

TEST_F(WindowPositionTest, AnUnloadableFileIsKeptAsGenerationZeroAndRemoved) {
  test::LogCapture log;
  const std::string broken = "<root><parameters><parameter name=\"MAIN_WINDOW_X\" value=\"5\"/></root>";
  test::writeFile(gf_parametersPath(), broken);
  MAIN_WINDOW_X.set(777);

  lf_readWindowPosition();

  EXPECT_FALSE(fs::exists(gf_parametersPath()));
  EXPECT_EQ(test::readFile(gf_userFolder() / "parameters0.xml"), broken);
  EXPECT_EQ(MAIN_WINDOW_X.value, 777);
  const std::string expected =
      "\n==> " + gf_parametersPath().string() + " failed to load (Start-end tags mismatch). Saved as 0.xml and removed.\n";
  EXPECT_NE(log.text().find(expected), std::string::npos) << log.text();
}

}  // namespace
}  // namespace orv
