#include "fault_datagrams.h"

#include <array>

namespace orv::standin {

namespace {

struct BrokenField {
  std::size_t index;
  std::string_view text;
};

// Each one reaches a different message of the traffic decoder.
constexpr std::array<BrokenField, 8> kBrokenFields = {{
    {2, "abc"},           // lat unreadable
    {14, ""},             // timestamp empty
    {1, "4294967296"},    // hexid overflows 32 bits
    {4, "x1000"},         // altitude unreadable
    {25, "400.0"},        // true heading above 360 (with adsb_icao)
    {12, "F@A"},          // origin not a code
    {20, "fast"},         // TAS unreadable
    {7, "north"},         // track unreadable
}};

constexpr std::array<std::string_view, 6> kBrokenWeather = {
    "this is not JSON",
    R"({"QNH":"abc"})",
    R"({"QNH":null})",
    R"({"QNH":true})",
    R"({"ICAO":"EDDF"})",
    R"([1013])",
};

}  // namespace

std::string replaceField(std::string_view line, std::size_t index, std::string_view text) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < index; ++i) {
    const auto comma = line.find(',', begin);
    if (comma == std::string_view::npos) return std::string(line);
    begin = comma + 1;
  }
  const auto end = line.find(',', begin);
  std::string result(line.substr(0, begin));
  result += text;
  if (end != std::string_view::npos) result += line.substr(end);
  return result;
}

std::string malformedTraffic(std::string_view goodLine, std::size_t n) {
  // Two kinds need no good line: a line of one field, and a line cut after its callsign.
  const std::size_t kinds = kBrokenFields.size() + 2;
  const std::size_t kind = n % kinds;
  if (kind == kBrokenFields.size()) return "garbage without any field separators";
  if (kind == kBrokenFields.size() + 1) {
    std::size_t cut = 0;
    for (int i = 0; i < 10 && cut != std::string_view::npos; ++i) cut = goodLine.find(',', cut + 1);
    return std::string(goodLine.substr(0, cut));
  }
  return replaceField(goodLine, kBrokenFields[kind].index, kBrokenFields[kind].text);
}

std::string malformedWeather(std::size_t n) { return std::string(kBrokenWeather[n % kBrokenWeather.size()]); }

std::string oversizeDatagram(std::string_view goodLine, std::size_t size) {
  std::string datagram(goodLine.substr(0, size));
  // Trailing fields are not read; padding there keeps the rest of the line as it was.
  if (datagram.size() < size) datagram.push_back(',');
  datagram.resize(size, 'x');
  return datagram;
}

}  // namespace orv::standin
