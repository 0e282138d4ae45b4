#include "liveries/inline_regcodes.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "foundation/log.h"
#include "liveries/catalogue_file.h"
#include "liveries/livery_indexes.h"
#include "refdata/ac_code_text.h"

namespace orv {

namespace {
constexpr const char* kClashFile = "output/errors/InlineRegcodes.txt";

void writeClashes(const std::vector<std::string>& clashes) {
  std::error_code error;
  std::filesystem::create_directories("output/errors", error);
  std::ofstream out(kClashFile, std::ios::binary | std::ios::trunc);
  for (const std::string& line : clashes) out << line << '\n';
  if (!out) gf_logError("Failed to write {}", kClashFile);
  gf_log("{:5} in-line regcode clashes, see '{}'", clashes.size(), kClashFile);
}
}  // namespace

void gf_processInlineRegcodes() {
  std::vector<std::string> clashes;
  for (const LiveryRecord& record : liveriesScannedList) {
    if (record.regcode.empty()) continue;
    const CatalogueTitle* title = gf_findCatalogueTitle(record.title);
    if (title == nullptr) {
      clashes.push_back(fmt::format("==> [{}] {} '{}' not available, system error, should not happen?",
                                    gf_acCodeText(record.code), record.regcode, record.title));
      continue;
    }
    const auto [byRegcode, newRegcode] = regcodeToTitle.try_emplace(record.regcode, title);
    if (!newRegcode && byRegcode->second->text != title->text)
      clashes.push_back(
          fmt::format("{} '{}' => already in use by '{}'", record.regcode, title->text, byRegcode->second->text));
    const auto [byTitle, newTitle] = titleToRegcode.try_emplace(title->text, byRegcode->first);
    if (!newTitle && byTitle->second != record.regcode)
      clashes.push_back(fmt::format("{} '{}' => already in use by '{}'", title->text, record.regcode, byTitle->second));
  }
  if (!clashes.empty()) writeClashes(clashes);
}

}  // namespace orv
