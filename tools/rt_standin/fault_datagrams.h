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

// The line with field `index` (from 0) replaced; unchanged when it has no such field.
std::string replaceField(std::string_view line, std::size_t index, std::string_view text);

}  // namespace orv::standin
