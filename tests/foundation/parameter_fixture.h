#pragma once
// Each test starts with every parameter at its default, a private AppData folder and a
// private working folder, and a captured log.
#include <gtest/gtest.h>

#include <filesystem>

#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/user_paths.h"
#include "platform/window/headless_window.h"
#include "test_support.h"
#include "ui/window_hooks.h"

namespace orv::test {

class ParameterTest : public testing::Test {
 protected:
  void SetUp() override {
    gf_setWindow(&window);
    lf_connectWindowHooks();
    previousDir = std::filesystem::current_path();
    std::filesystem::current_path(workDir.path());
    gf_writeParameters(true);
    PROGRAM_VERSION.defaultValue.clear();
    std::filesystem::remove(gf_parametersPath());
  }
  void TearDown() override {
    std::filesystem::current_path(previousDir);
    gf_setWindow(nullptr);
  }
  std::filesystem::path file() const { return gf_parametersPath(); }

  AppDataOverride appData;
  TempDir workDir;
  HeadlessWindow window;
  LogCapture log;
  std::filesystem::path previousDir;
};

}  // namespace orv::test
