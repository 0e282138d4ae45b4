#include "liveries/match_memory.h"

#include <fmt/format.h>

#include "foundation/log.h"
#include "liveries/failed_titles.h"
#include "refdata/ac_code_text.h"

namespace orv {

std::string_view gf_rememberedTitle(std::uint32_t hexid) {
  const auto it = gLiveryCache.find(hexid);
  if (it == gLiveryCache.end()) return {};
  if (gFailedTitles.contains(it->second)) {
    gLiveryCache.erase(it);
    return {};
  }
  return it->second;
}

std::string gf_noMatchText(const AcCode& code, std::string_view reg) {
  return fmt::format("{} | {}", gf_acCodeText(code), reg);
}

void lf_writeNoMatchList() {
  if (gNoMatch.empty()) return;
  std::string text = "\nNo match found for:";
  for (const std::string& entry : gNoMatch) text.append("\n").append(entry);
  text += '\n';
  gf_log(text);
}

void lf_clearNoMatch() { gNoMatch.clear(); }

void lf_clearLiveryCache() { gLiveryCache.clear(); }

}  // namespace orv
