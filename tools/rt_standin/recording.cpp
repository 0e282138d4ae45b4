// Reading and writing recordings; every fault names its line, since recordings are edited by hand.
#include "recording.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

namespace orv::standin {

namespace {

constexpr std::string_view kHexMark = "hex:";
constexpr std::string_view kEpochMark = "# epoch ";

std::optional<double> readSeconds(std::string_view text) {
  double value = 0.0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc{} || end != text.data() + text.size() || !std::isfinite(value) || value < 0.0)
    return std::nullopt;
  return value;
}

std::optional<std::uint16_t> readPort(std::string_view text) {
  unsigned value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc{} || end != text.data() + text.size() || value < 1 || value > 65535) return std::nullopt;
  return static_cast<std::uint16_t>(value);
}

// A text line holds printable bytes and UTF-8; anything else, or text that looks like the mark, goes as hex.
bool needsHex(std::string_view datagram) {
  if (datagram.starts_with(kHexMark)) return true;
  for (const char c : datagram) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x20 || b == 0x7f) return true;
  }
  return false;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::optional<std::string> fromHex(std::string_view hex) {
  if (hex.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  bytes.reserve(hex.size() / 2);
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    const int high = hexDigit(hex[i]);
    const int low = hexDigit(hex[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<char>(high * 16 + low));
  }
  return bytes;
}

[[noreturn]] void fault(std::size_t number, std::string_view what) {
  throw RecordingError(fmt::format("line {}: {}", number, what));
}

}  // namespace

Recording parseRecording(std::string_view text) {
  Recording recording;
  std::size_t number = 0;
  while (!text.empty()) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    ++number;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty()) continue;
    if (line.starts_with(kEpochMark)) {
      const auto value = readSeconds(line.substr(kEpochMark.size()));
      if (!value) fault(number, fmt::format("epoch '{}' is not a number of seconds", line.substr(kEpochMark.size())));
      recording.epoch = value;
      continue;
    }
    if (line.starts_with('#')) continue;

    const auto blank1 = line.find(' ');
    const auto blank2 = blank1 == std::string_view::npos ? blank1 : line.find(' ', blank1 + 1);
    const std::string_view timeText = line.substr(0, blank1);
    const std::string_view portText =
        blank1 == std::string_view::npos ? std::string_view{} : line.substr(blank1 + 1, blank2 - blank1 - 1);
    if (timeText.empty() || portText.empty()) fault(number, "expected '<seconds> <port> <datagram>'");

    RecordedDatagram datagram;
    const auto seconds = readSeconds(timeText);
    if (!seconds) fault(number, fmt::format("time '{}' is not a number of seconds", timeText));
    datagram.seconds = *seconds;
    if (!recording.datagrams.empty() && datagram.seconds < recording.datagrams.back().seconds)
      fault(number, fmt::format("time {} comes before the time of the line before ({})", timeText,
                                recording.datagrams.back().seconds));
    const auto port = readPort(portText);
    if (!port) fault(number, fmt::format("port '{}' is not a port number (1 to 65535)", portText));
    datagram.port = *port;

    const std::string_view body = blank2 == std::string_view::npos ? std::string_view{} : line.substr(blank2 + 1);
    if (body.starts_with(kHexMark)) {
      auto bytes = fromHex(body.substr(kHexMark.size()));
      if (!bytes) fault(number, "the datagram after 'hex:' is not an even number of hex digits");
      datagram.text = std::move(*bytes);
    } else {
      datagram.text = std::string(body);
    }
    recording.datagrams.push_back(std::move(datagram));
  }
  return recording;
}

Recording loadRecording(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw RecordingError(fmt::format("{}: cannot be read", file.string()));
  std::ostringstream content;
  content << in.rdbuf();
  try {
    return parseRecording(content.str());
  } catch (const RecordingError& e) {
    throw RecordingError(fmt::format("{}: {}", file.string(), e.what()));
  }
}

std::string formatDatagramLine(const RecordedDatagram& datagram) {
  std::string line = fmt::format("{:.3f} {} ", datagram.seconds, datagram.port);
  if (!needsHex(datagram.text)) return line + datagram.text;
  line += kHexMark;
  for (const char c : datagram.text) line += fmt::format("{:02x}", static_cast<unsigned char>(c));
  return line;
}

std::string formatEpochLine(double epoch) { return fmt::format("{}{:.3f}", kEpochMark, epoch); }

std::string formatRecording(const Recording& recording) {
  std::string text = "# rt_standin recording: <seconds> <port> <datagram>\n";
  if (recording.epoch) text += formatEpochLine(*recording.epoch) + "\n";
  for (const auto& datagram : recording.datagrams) text += formatDatagramLine(datagram) + "\n";
  return text;
}

}  // namespace orv::standin
