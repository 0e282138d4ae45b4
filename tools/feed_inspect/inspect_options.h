#pragma once
// The inspector's command line: the decoding state the lines are decoded in.
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orv::inspect {

struct ParkAirport {
  double lat = 0.0;
  double lon = 0.0;
  double elevationFt = 0.0;
};

struct DecodingState {
  double userLat = 0.0;  // zero, as the reader holds it before the first refresh
  double userLon = 0.0;
  int rangeNm = 40;
  int qnh = 1013;
  std::optional<ParkAirport> park;
  bool airborneOnly = false;
};

struct InspectOptions {
  DecodingState state;
  bool help = false;
};

class OptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The arguments without the program's name. Throws OptionError with a message for the user.
InspectOptions parseOptions(const std::vector<std::string_view>& arguments);
std::string usageText();

}  // namespace orv::inspect
