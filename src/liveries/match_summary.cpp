#include "liveries/match_summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "foundation/log.h"
#include "liveries/failed_titles.h"

namespace orv {

void gf_writeMatchingSummary() {
  if (std::ranges::all_of(matchCounters, [](std::uint32_t n) { return n == 0; })) return;
  constexpr std::string_view heading = "live traffic livery matching summary";
  constexpr int width = 100 - static_cast<int>(heading.size());
  std::string text = gf_banner(width, 0, true, false, heading);
  text += "\nMatches at step: ";
  for (int step = 0; step < kMatchSteps; ++step)
    text += fmt::format("\n  {}: {}", step, matchCounters[static_cast<std::size_t>(step)]);
  if (!gFailedTitleInfo.empty()) {
    text += "\n\nCould not be created";
    for (const std::string& info : gFailedTitleInfo) text += fmt::format("\n  {}", info);
  }
  text += '\n';
  text += gf_banner(width, static_cast<int>(heading.size()), false, true);
  gf_log(text);
}

}  // namespace orv
