#include <gtest/gtest.h>

#include <thread>

#include "foundation/parameters.h"
#include "simlink/simulator_switch.h"
#include "ui/controls.h"
#include "ui/window_hooks.h"
#include "ui_fixture.h"

namespace orv {
namespace {

using test::UiTest;

TEST_F(UiTest, TheSimulatorSwitchMovesTheControlsOnlyOnTheWindowThread) {
  lf_createControls();
  lf_resetControls();
  lf_setControlText(ALL_INSTALL_PATH.controlId, "D:/MSFS");
  window.setChecked(SCAN_AIRPORTS.controlId, false);
  window.setChecked(SCAN_LIVERIES.controlId, false);
  // What the switch leaves behind on the SimClient thread before it posts.
  SCAN_AIRPORTS.set(true);
  SCAN_LIVERIES.set(true);
  ALL_INSTALL_PATH.set("");
  SIM_CHOICE.set("MSFS 2020");

  std::thread simClient([] { lf_showSimulatorSwitch(); });
  simClient.join();
  EXPECT_FALSE(window.control(SCAN_AIRPORTS.controlId)->checked) << "the posting thread moved a control";
  EXPECT_EQ(window.control(ALL_INSTALL_PATH.controlId)->text, "D:/MSFS");

  // The window's thread serves its queue: the work runs on its way to the next message.
  window.post(WM_PAINT_MESSAGE);
  EXPECT_EQ(window.waitMessage().id, WM_PAINT_MESSAGE);
  EXPECT_TRUE(window.control(SCAN_AIRPORTS.controlId)->checked);
  EXPECT_TRUE(window.control(SCAN_LIVERIES.controlId)->checked);
  EXPECT_EQ(window.control(ALL_INSTALL_PATH.controlId)->text, "");
  EXPECT_EQ(window.control(SIM_CHOICE.controlId)->text, "MSFS 2020");
}

}  // namespace
}  // namespace orv
