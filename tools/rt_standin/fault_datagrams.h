#pragma once
// Datagrams that Orvane's readers must log and pass over without stopping: traffic lines with
// one field broken, weather lines that aren't usable, and datagrams too long for the receive buffer.
#include <cstddef>
#include <string>
#include <string_view>

namespace orv::standin {

inline constexpr std::size_t kReaderBufferSize = 16384;

// The n-th of a cycle of broken traffic lines, each made from a good line near the user
// (so that the range test doesn't drop it first) with one fault of its own.
std::string malformedTraffic(std::string_view goodLine, std::size_t n);
// The n-th of a cycle of weather lines without a usable QNH.
std::string malformedWeather(std::size_t n);
// The good line padded to exactly size bytes, so that only its length is wrong.
std::string oversizeDatagram(std::string_view goodLine, std::size_t size = kReaderBufferSize);

// The good datagram cut short: a traffic line before its time stamp (field 14), so that no
// decoder step can read it; a weather line before its closing brace, so that it is no JSON.
std::string truncatedDatagram(std::string_view goodLine, bool weather, std::size_t n);

// True when the n-th broken traffic line fails in the decoder's first steps (time stamp or
// position), so that it is logged whatever the line was. The others may first meet a filter
// that drops their line without a word, as it would drop the good line.
bool malformedTrafficAlwaysLogged(std::size_t n);

// The n-th datagram of a flood of broken ones, in turn on both ports, each different from any
// datagram before it, so that the reader's repeat test never drops one: traffic lines without a
// readable time stamp or position, cut lines, datagrams too long for the reader's buffer, and
// weather lines without a usable QNH. goodTraffic is a traffic line that the decoder reads.
struct FloodDatagram {
  std::string text;
  bool weather = false;   // for the weather port
  bool overlong = false;  // longer than the reader's buffer
};
FloodDatagram floodDatagram(std::string_view goodTraffic, std::size_t n);

// The line with field `index` (from 0) replaced; unchanged when it has no such field.
std::string replaceField(std::string_view line, std::size_t index, std::string_view text);

}  // namespace orv::standin
