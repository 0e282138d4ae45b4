// The installed titles of a scenario: read from a file of the data build, only they can be created.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "platform/simconnect/standin_control.h"
#include "platform/simconnect/standin_installed_titles.h"
#include "test_support.h"

namespace orv::test {
namespace {

std::string scenarioWith(const std::filesystem::path& file) {
  return R"({"acceptAnyTitle": true, "titles": ["Scenario Title"], "installedTitlesFile": )" +
         nlohmann::json(file.string()).dump() + "}";
}

TEST(InstalledTitles, AFileOfTitlesIsAllThatCanBeCreatedAndWithoutItTheScenarioStands) {
  TempDir dir;
  const auto file = dir / "standin_titles.json";
  writeFile(file, R"([{"title": "Airbus A320-200 Lufthansa", "model": "A320"},
                      {"title": "FSLTL_B738_RYR_EI-DAC", "model": "B738"}])");
  const standin::Scenario installed = standin::parseScenario(scenarioWith(file), "t.json");
  EXPECT_EQ(standin::modelOfTitle(installed, "FSLTL_B738_RYR_EI-DAC"), "B738");
  EXPECT_EQ(standin::modelOfTitle(installed, "Scenario Title"), "") << "the scenario's own titles stay";
  EXPECT_FALSE(standin::modelOfTitle(installed, "Boeing 737-800 KLM").has_value()) << "any other is refused";

  const standin::Scenario without = standin::parseScenario(scenarioWith(dir / "absent.json"), "t.json");
  EXPECT_EQ(standin::modelOfTitle(without, "Boeing 737-800 KLM"), "");

  writeFile(file, R"([{"title": "Airbus A320-200 Lufthansa"}])");
  try {
    standin::parseScenario(scenarioWith(file), "t.json");
    FAIL() << "a title without its model was read";
  } catch (const standin::ScenarioError& e) {
    EXPECT_EQ(std::string(e.what()),
              "installed titles '" + file.string() + "': [0]: must be {\"title\": text, \"model\": text}");
  }
}

}  // namespace
}  // namespace orv::test
