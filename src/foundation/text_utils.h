#pragma once
// Small text helpers shared by the readers and the log.
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace orv {

// Without blanks, tabs, line feeds and carriage returns at both ends.
std::string gf_trim(std::string_view text);

// round(part * 100 / whole) in double arithmetic; 0 when whole is below 1.
template <class Part, class Whole>
  requires std::is_arithmetic_v<Part> && std::is_arithmetic_v<Whole>
std::int32_t gf_percent(Part part, Whole whole) {
  const auto w = static_cast<double>(whole);
  if (w < 1.0) return 0;
  return static_cast<std::int32_t>(std::lround(static_cast<double>(part) * 100.0 / w));
}

// Lower-case hexadecimal without a prefix.
std::string gf_hex(std::uint32_t value);

}  // namespace orv
