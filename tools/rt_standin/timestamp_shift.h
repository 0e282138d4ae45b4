#pragma once
// Replayed reports must look fresh: field 14 of a traffic line (the report's time in seconds)
// is moved to the present, keeping each report's age at its arrival.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "recording.h"

namespace orv::standin {

inline constexpr std::size_t kTimestampField = 14;

// Field 14 of a traffic line; none when the line has no such field or it isn't a number.
std::optional<double> reportTimestamp(std::string_view line);

// The line with delta added to field 14, written with as many decimals as it had.
// A line without a readable field 14 comes back unchanged.
std::string shiftTimestamp(std::string_view line, double delta);

// Unix time of second 0 of the recording: its epoch line, else the latest report time less
// its arrival second (no report is then newer than its arrival). None without traffic lines.
std::optional<double> recordingEpoch(const Recording& recording);

// What to add to a report that arrived at `seconds` into the recording, sent at `presentEpoch`.
double shiftFor(double epoch, double seconds, double presentEpoch);

}  // namespace orv::standin
