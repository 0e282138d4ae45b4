#include "foundation/text_utils.h"

#include <fmt/format.h>

namespace orv {

std::string gf_trim(std::string_view text) {
  constexpr std::string_view blanks = " \t\n\r";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(blanks);
  return std::string(text.substr(first, last - first + 1));
}

std::string gf_hex(std::uint32_t value) { return fmt::format("{:x}", value); }

}  // namespace orv
