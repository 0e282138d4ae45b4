#pragma once
// Each test starts with every parameter at its default, a private AppData folder and a
// private working folder, and a captured log.
#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <filesystem>
#include <string>

#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/user_paths.h"
#include "platform/window/headless_window.h"
#include "test_support.h"
#include "ui/window_hooks.h"

namespace orv::test {

// A parameter's value in the text of a parameters.xml, with or without root; "<missing>" if absent.
inline std::string valueIn(const std::string& xml, const std::string& name) {
  pugi::xml_document doc;
  doc.load_string(xml.c_str());
  auto params = doc.child("root").child("parameters");
  if (!params) params = doc.child("parameters");
  return params.find_child_by_attribute("parameter", "name", name.c_str()).attribute("value").as_string("<missing>");
}

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
