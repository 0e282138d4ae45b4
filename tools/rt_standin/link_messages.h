#pragma once
// What Orvane sends on the RealTraffic link, in the units a person reads:
// Qs121 (the user aircraft) in degrees, feet and knots, Qs123 (the simulator's time) as a UTC text.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orv::standin {

struct UserPosition {
  double pitchDeg = 0.0;  // positive nose up
  double bankDeg = 0.0;
  double headingDeg = 0.0;  // true, 0 to 360
  double altitudeFt = 0.0;
  double groundSpeedKt = 0.0;
  double latitudeDeg = 0.0;
  double longitudeDeg = 0.0;
};

// "Qs121=<7 numbers separated by ;>" without the line end; none when it isn't one.
std::optional<UserPosition> decodeQs121(std::string_view line);
// "Qs123=<milliseconds since 1970>"; none when it isn't one.
std::optional<std::int64_t> decodeQs123(std::string_view line);

std::string describePosition(const UserPosition& position);
// "2024-06-10 12:00:00.250 UTC"
std::string describeSimTime(std::int64_t milliseconds);

// Cuts a TCP byte stream into lines; a line end is LF with or without CR before it.
struct LineSplitter {
  std::string pending;
};
void feedBytes(LineSplitter& splitter, std::string_view bytes);
std::optional<std::string> nextLine(LineSplitter& splitter);

}  // namespace orv::standin
