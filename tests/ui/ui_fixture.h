#pragma once
// Every UI test starts from defaults: parameters, the run state's reset (the window's state
// with it), an empty headless window, and an AppData folder of its own.
#include <gtest/gtest.h>

#include <filesystem>

#include "foundation/parameters.h"
#include "foundation/status_values.h"
#include "foundation/user_paths.h"
#include "parking/parking_run_state.h"
#include "platform/window/headless_window.h"
#include "test_support.h"
#include "ui/window_hooks.h"

namespace orv::test {

inline void resetParametersToDefaults() {
  for (auto* p : gf_boolList()) p->set(p->defaultValue);
  for (auto* p : gf_checkboxList()) p->set(p->defaultValue);
  for (auto* p : gf_intList()) p->set(p->defaultValue);
  for (auto* p : gf_comboList()) p->set(p->defaultValue);
  for (auto* p : gf_stringList()) p->set(p->defaultValue);
  for (auto* p : gf_editList()) p->set(p->defaultValue);
  parking_percentage.set(parking_percentage.defaultValue);
  MAX_FIT_FL.set(MAX_FIT_FL.defaultValue);
  ALL_INSTALL_PATH.set(ALL_INSTALL_PATH.defaultValue);
  CALLSIGN_2_OBJECTID.set(CALLSIGN_2_OBJECTID.defaultValue);
}

class UiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    lf_connectWindowHooks();
    resetParametersToDefaults();
    std::filesystem::create_directories(gf_userFolder());
    // Installed last, so that the resets above leave no invalidations behind.
    gf_setWindow(&window);
  }
  void TearDown() override { gf_setWindow(nullptr); }

  AppDataOverride appData;
  HeadlessWindow window;
};

}  // namespace orv::test
