#include "platform/simconnect/standin_installed_titles.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>

#include "platform/simconnect/standin_control.h"

namespace orv::standin {

bool readInstalledTitles(const std::filesystem::path& file, std::vector<TitleEntry>& titles) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return false;
  const auto fail = [&](const std::string& what) {
    throw ScenarioError(fmt::format("installed titles '{}': {}", file.string(), what));
  };
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in) fail("the file cannot be read");
  nlohmann::json list;
  try {
    list = nlohmann::json::parse(text.str());
  } catch (const nlohmann::json::parse_error& e) {
    fail(fmt::format("not valid JSON: {}", e.what()));
  }
  if (!list.is_array()) fail("must be an array of {\"title\", \"model\"}");
  std::vector<TitleEntry> read;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const auto& entry = list[i];
    const auto isText = [&](const char* key) { return entry.contains(key) && entry[key].is_string(); };
    if (!entry.is_object() || !isText("title") || !isText("model"))
      fail(fmt::format("[{}]: must be {{\"title\": text, \"model\": text}}", i));
    TitleEntry title{entry["title"].get<std::string>(), entry["model"].get<std::string>()};
    if (title.title.empty()) fail(fmt::format("[{}]: a title must not be empty", i));
    read.push_back(std::move(title));
  }
  titles.insert(titles.end(), read.begin(), read.end());
  return true;
}

}  // namespace orv::standin
