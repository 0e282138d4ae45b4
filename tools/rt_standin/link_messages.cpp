// Decoding the link's messages: radians and scaled integers back to degrees, feet and knots.
#include "link_messages.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <numbers>

namespace orv::standin {

namespace {

constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

std::optional<double> readNumber(std::string_view text) {
  double value = 0.0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
    return std::nullopt;
  return value;
}

}  // namespace

std::optional<UserPosition> decodeQs121(std::string_view line) {
  constexpr std::string_view kHead = "Qs121=";
  if (!line.starts_with(kHead)) return std::nullopt;
  line.remove_prefix(kHead.size());
  std::array<double, 7> values{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto semicolon = line.find(';');
    const bool last = i + 1 == values.size();
    if (last != (semicolon == std::string_view::npos)) return std::nullopt;
    const auto value = readNumber(line.substr(0, semicolon));
    if (!value) return std::nullopt;
    values[i] = *value;
    if (!last) line.remove_prefix(semicolon + 1);
  }
  UserPosition p;
  // The link sends -pitch, so that its first field is positive nose up.
  p.pitchDeg = values[0] / 100000.0 * kDegreesPerRadian;
  p.bankDeg = values[1] / 100000.0 * kDegreesPerRadian;
  p.headingDeg = std::fmod(values[2] * kDegreesPerRadian + 360.0, 360.0);
  p.altitudeFt = values[3] / 1000.0;
  p.groundSpeedKt = values[4] / 1000.0;
  p.latitudeDeg = values[5] * kDegreesPerRadian;
  p.longitudeDeg = values[6] * kDegreesPerRadian;
  return p;
}

std::optional<std::int64_t> decodeQs123(std::string_view line) {
  constexpr std::string_view kHead = "Qs123=";
  if (!line.starts_with(kHead)) return std::nullopt;
  line.remove_prefix(kHead.size());
  std::int64_t value = 0;
  const auto [end, ec] = std::from_chars(line.data(), line.data() + line.size(), value);
  if (line.empty() || ec != std::errc{} || end != line.data() + line.size()) return std::nullopt;
  return value;
}

std::string describePosition(const UserPosition& p) {
  return fmt::format("position {:.6f} {:.6f}, {:.0f} ft, {:.1f} kt, heading {:.1f}, pitch {:.2f}, bank {:.2f}",
                     p.latitudeDeg, p.longitudeDeg, p.altitudeFt, p.groundSpeedKt, p.headingDeg, p.pitchDeg,
                     p.bankDeg);
}

std::string describeSimTime(std::int64_t milliseconds) {
  // The civil calendar of <chrono>, not gmtime: Windows' C library knows no time before 1970.
  using namespace std::chrono;
  // Beyond ±10^7 days (about 27 000 years) the calendar's year would overflow.
  constexpr std::int64_t kLimit = 10'000'000LL * 86'400'000LL;
  if (milliseconds > kLimit || milliseconds < -kLimit) return fmt::format("{} ms (not a date)", milliseconds);
  const sys_time<std::chrono::milliseconds> t{std::chrono::milliseconds{milliseconds}};
  const sys_days day = floor<days>(t);
  const year_month_day date{day};
  const hh_mm_ss<std::chrono::milliseconds> time{t - day};
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}.{:03} UTC", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), time.hours().count(),
                     time.minutes().count(), time.seconds().count(), time.subseconds().count());
}

void feedBytes(LineSplitter& splitter, std::string_view bytes) { splitter.pending.append(bytes); }

std::optional<std::string> nextLine(LineSplitter& splitter) {
  const auto end = splitter.pending.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string line = splitter.pending.substr(0, end);
  splitter.pending.erase(0, end + 1);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

}  // namespace orv::standin
