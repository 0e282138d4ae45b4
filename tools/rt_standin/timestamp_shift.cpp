// Moving report times of a recording to the time of the replay.
#include "timestamp_shift.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>

namespace orv::standin {

namespace {

struct FieldSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
};

std::optional<FieldSpan> findField(std::string_view line, std::size_t index) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < index; ++i) {
    const auto comma = line.find(',', begin);
    if (comma == std::string_view::npos) return std::nullopt;
    begin = comma + 1;
  }
  const auto comma = line.find(',', begin);
  return FieldSpan{begin, comma == std::string_view::npos ? line.size() : comma};
}

std::optional<double> readNumber(std::string_view text) {
  double value = 0.0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace

std::optional<double> reportTimestamp(std::string_view line) {
  const auto span = findField(line, kTimestampField);
  if (!span) return std::nullopt;
  return readNumber(line.substr(span->begin, span->end - span->begin));
}

std::string shiftTimestamp(std::string_view line, double delta) {
  const auto span = findField(line, kTimestampField);
  if (!span) return std::string(line);
  const std::string_view field = line.substr(span->begin, span->end - span->begin);
  const auto value = readNumber(field);
  if (!value) return std::string(line);
  const auto point = field.find('.');
  const std::size_t decimals = point == std::string_view::npos ? 0 : field.size() - point - 1;
  std::string shifted(line.substr(0, span->begin));
  shifted += fmt::format("{:.{}f}", *value + delta, decimals);
  shifted += line.substr(span->end);
  return shifted;
}

std::optional<double> recordingEpoch(const Recording& recording) {
  if (recording.epoch) return recording.epoch;
  std::optional<double> epoch;
  for (const auto& datagram : recording.datagrams) {
    if (datagram.port != kTrafficPort) continue;
    const auto stamp = reportTimestamp(datagram.text);
    if (!stamp) continue;
    const double candidate = *stamp - datagram.seconds;
    if (!epoch || candidate > *epoch) epoch = candidate;
  }
  return epoch;
}

double shiftFor(double epoch, double seconds, double presentEpoch) { return presentEpoch - (epoch + seconds); }

}  // namespace orv::standin
