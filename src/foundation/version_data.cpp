#include "foundation/version_data.h"

#include <fmt/format.h>

#include <charconv>
#include <regex>
#include <stdexcept>

#include "foundation/log.h"

namespace orv {

VersionData::VersionData(std::string_view text) {
  if (text.empty()) return;
  try {
    static const std::regex pattern(R"((\d+)\.(\d+)\.(\d+))");
    std::match_results<std::string_view::const_iterator> m;
    if (!std::regex_match(text.begin(), text.end(), m, pattern)) throw std::runtime_error("invalid version format");
    std::int32_t* fields[3] = {&major, &minor, &patch};
    for (int i = 0; i < 3; ++i) {
      const auto& g = m[i + 1];
      std::int32_t v = 0;
      auto [end, ec] = std::from_chars(&*g.first, &*g.first + g.length(), v);
      if (ec != std::errc{} || end != &*g.first + g.length()) throw std::runtime_error("parse error in version string");
      *fields[i] = v;
    }
  } catch (const std::exception& e) {
    gf_log("{} exception: {}", "VersionData", e.what());
  }
}

std::string VersionData::text() const { return fmt::format("{}.{}.{}", major, minor, patch); }

}  // namespace orv
