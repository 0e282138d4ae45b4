#include "file_checks.h"

#include <fmt/format.h>
#include <pugixml.hpp>

#include <fstream>
#include <set>
#include <sstream>

#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/text_encoding.h"

namespace fs = std::filesystem;

namespace orv::savekill {

namespace {

std::string valueVerdict(std::int64_t value, const FileProgress& progress, Found& found) {
  const std::int64_t completed = progress.completed.load();
  const std::int64_t inProgress = progress.inProgress.load();
  if (value != completed && value != inProgress)
    return fmt::format("holds {}, neither the last saved {} nor the one being saved {}", value, completed, inProgress);
  found.value = value;
  found.isNew = value == inProgress && inProgress != completed;
  return {};
}

std::set<std::string> storedNames() {
  std::set<std::string> names;
  for (auto* p : gf_boolList()) names.insert(p->name);
  for (auto* p : gf_checkboxList()) names.insert(p->name);
  for (auto* p : gf_intList()) names.insert(p->name);
  for (auto* p : gf_comboList()) names.insert(p->name);
  for (auto* p : gf_stringList()) names.insert(p->name);
  for (auto* p : gf_editList()) names.insert(p->name);
  return names;
}

}  // namespace

std::string checkParameters(const fs::path& file, const FileProgress& progress, Found& found) {
  pugi::xml_document doc;
  const pugi::xml_parse_result loaded = doc.load_file(file.c_str());
  if (!loaded) return fmt::format("does not load: {} at offset {}", loaded.description(), loaded.offset);
  const pugi::xml_node params = doc.child("root").child("parameters");
  if (!params) return "has no root/parameters";
  std::set<std::string> missing = storedNames();
  std::int64_t counter = -1;
  for (pugi::xml_node p : params.children("parameter")) {
    const std::string name = p.attribute("name").as_string();
    if (missing.erase(name) == 0) return fmt::format("holds {} twice, or a name the program doesn't store", name);
    if (name == LAST_EPOCH_TIME.name) counter = p.attribute("value").as_llong(-1);
  }
  if (!missing.empty())
    return fmt::format("lacks {} of its parameters, {} among them", missing.size(), *missing.begin());
  return valueVerdict(counter, progress, found);
}

std::string checkObjectList(const fs::path& file, const FileProgress& progress, Found& found) {
  std::error_code ec;
  // Not there before its first save has finished.
  if (!fs::exists(file, ec)) return progress.completed.load() < 0 ? std::string() : std::string("is missing");
  std::ifstream in(file, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  const std::string text = bytes.str();
  if (text.empty() || text.back() != '\n') return "ends inside a line";
  std::vector<std::string> lines;
  gf_splitLines(text, lines);
  if (lines.size() != static_cast<std::size_t>(kObjectListLines))
    return fmt::format("holds {} lines instead of {}", lines.size(), kObjectListLines);
  std::int64_t generation = -1;
  for (const std::string& line : lines) {
    // "<id>;K<generation>;<reg>;..."
    const auto first = line.find(";K");
    if (first == std::string::npos) return fmt::format("has a broken line '{}'", line);
    const std::int64_t g = std::atoll(line.c_str() + first + 2);
    if (generation >= 0 && g != generation) return "mixes two generations";
    generation = g;
  }
  return valueVerdict(generation, progress, found);
}

int countTemporaryFiles(const fs::path& folder) {
  int count = 0;
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(folder, ec))
    if (entry.path().extension() == ".tmp") ++count;
  return count;
}

}  // namespace orv::savekill
