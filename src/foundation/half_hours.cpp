#include "foundation/half_hours.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <vector>

#include "foundation/log.h"
#include "foundation/text_utils.h"

namespace orv {

namespace {

constexpr std::string_view kFunction = "gf_hours2bitset";

enum class Part { Empty, Good, Bad };

// One number of the text; `part` is already trimmed. An empty part is no number, but no error either.
Part readHour(const std::string& part, std::string_view text, std::size_t& hour) {
  if (part.empty()) return Part::Empty;
  const bool digits = std::all_of(part.begin(), part.end(), [](char c) { return c >= '0' && c <= '9'; });
  std::size_t value = 0;
  const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
  if (digits && error == std::errc{} && end == part.data() + part.size() && value < kHalfHoursPerDay) {
    hour = value;
    return Part::Good;
  }
  gf_logError("{} invalid hour '{}' in {}", kFunction, part, text);
  return Part::Bad;
}

std::vector<std::string> splitTrimmed(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const auto at = text.find(separator);
    parts.push_back(gf_trim(text.substr(0, at)));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

HalfHours readRange(std::string_view text) {
  if (std::count(text.begin(), text.end(), ':') > 1) {
    gf_logError("{} more than one colon char in: {}", kFunction, text);
    return {};
  }
  std::vector<std::size_t> numbers;
  bool bad = false;
  for (const std::string& part : splitTrimmed(text, ':')) {
    std::size_t hour = 0;
    switch (readHour(part, text, hour)) {
      case Part::Good: numbers.push_back(hour); break;
      case Part::Bad: bad = true; break;
      case Part::Empty: break;
    }
  }
  if (bad) return {};
  HalfHours set;
  if (numbers.size() == 2) {
    const std::size_t a = numbers[0];
    const std::size_t b = numbers[1];
    if (a > b) {
      gf_logError("{} descending range not allowed ({}:{} in {})", kFunction, a, b, text);
      return {};
    }
    for (std::size_t n = a; n <= b; ++n) set.set(n);
  } else if (numbers.size() == 1) {
    set.set(numbers[0]);
  } else {
    gf_logError("{} invalid range format in {}", kFunction, text);
  }
  return set;
}

}  // namespace

HalfHours gf_hours2bitset(std::string_view text) {
  if (gf_trim(text).empty()) return {};
  if (text.find(':') != std::string_view::npos) return readRange(text);
  HalfHours set;
  for (const std::string& part : splitTrimmed(text, ',')) {
    std::size_t hour = 0;
    if (readHour(part, text, hour) == Part::Good) set.set(hour);
  }
  return set;
}

std::optional<std::string> gf_bitset2hours(const HalfHours& hours) {
  const std::uint64_t bits = hours.to_ullong();
  if (bits == 0) return std::nullopt;
  const int low = std::countr_zero(bits);
  const int high = 63 - std::countl_zero(bits);
  // One unbroken run: shifted down, the bits are all ones.
  const std::uint64_t run = bits >> low;
  if ((run & (run + 1)) != 0) return std::nullopt;
  if (low == high) return fmt::format("{}", low);
  return fmt::format("{}:{}", low, high);
}

std::string gf_bitset2list(const HalfHours& hours) {
  std::string list;
  for (std::size_t n = 0; n < hours.size(); ++n) {
    if (!hours.test(n)) continue;
    if (!list.empty()) list += ',';
    list += std::to_string(n);
  }
  return list;
}

}  // namespace orv
