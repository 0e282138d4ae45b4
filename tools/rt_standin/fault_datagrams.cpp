#include "fault_datagrams.h"

#include <fmt/format.h>

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

bool malformedTrafficAlwaysLogged(std::size_t n) {
  const std::size_t kind = n % (kBrokenFields.size() + 2);
  // Position and time stamp come first in the decoder; a line without commas or cut after its
  // callsign has no time stamp.
  return kind >= kBrokenFields.size() || kBrokenFields[kind].index == 2 || kBrokenFields[kind].index == 14;
}

std::string truncatedDatagram(std::string_view goodLine, bool weather, std::size_t n) {
  // The cut falls behind the first field that tells datagrams apart (the hexid, the first
  // member), so that two cut lines of different datagrams differ, and before the part that
  // would make it readable.
  const auto nth = [&](char c, int count) {
    std::size_t at = std::string_view::npos;
    for (int i = 0; i < count; ++i) {
      at = goodLine.find(c, at == std::string_view::npos ? 0 : at + 1);
      if (at == std::string_view::npos) break;
    }
    return at;
  };
  std::size_t low = weather ? nth(',', 1) : nth(',', 2);
  std::size_t limit = weather ? goodLine.rfind('}') : nth(',', 14);
  if (limit == std::string_view::npos) limit = goodLine.size();
  if (low == std::string_view::npos || low >= limit) low = limit > 1 ? 1 : limit;
  if (low >= limit) return std::string(goodLine.substr(0, limit));
  return std::string(goodLine.substr(0, low + (n * 7919) % (limit - low)));
}

FloodDatagram floodDatagram(std::string_view goodTraffic, std::size_t n) {
  // Every text carries n, so that no two are equal.
  switch (n % 8) {
    case 0: return {fmt::format("garbage {} without any field separators", n)};
    case 1: return {fmt::format("not JSON {}", n), true};
    case 2: return {replaceField(goodTraffic, 14, fmt::format("t{}", n))};
    case 3: {
      constexpr std::array<std::string_view, 5> kWithoutQnh = {
          R"({{"QNH":null,"n":{}}})", R"({{"QNH":true,"n":{}}})", R"({{"QNH":"abc","n":{}}})",
          R"({{"ICAO":"EDDF","n":{}}})", "[1013,{}]"};
      return {fmt::format(fmt::runtime(kWithoutQnh[(n / 8) % kWithoutQnh.size()]), n), true};
    }
    case 4: return {truncatedDatagram(replaceField(goodTraffic, 1, fmt::format("{}", 100000 + n)), false, n)};
    case 5: return {truncatedDatagram(fmt::format(R"({{"n":{},"ICAO":"EDDF","QNH":1013}})", n), true, n), true};
    case 6: return {replaceField(goodTraffic, 2, fmt::format("abc{}", n))};
    default: {
      // 16384 up to 65384 bytes; UDP carries at most 65507.
      const std::string line = replaceField(goodTraffic, 1, fmt::format("{}", 100000 + n));
      return {oversizeDatagram(line, kReaderBufferSize + (n * 7919) % 49001), false, true};
    }
  }
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
