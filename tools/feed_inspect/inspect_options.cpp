#include "inspect_options.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "foundation/parameters.h"

namespace orv::inspect {

namespace {

double numberOf(std::string_view option, std::string_view text) {
  double value = 0.0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
    throw OptionError(fmt::format("{} {}: not a number", option, text));
  return value;
}

// "a,b" or "a,b,c": exactly `count` numbers separated by commas.
std::vector<double> numbersOf(std::string_view option, std::string_view text, std::size_t count,
                              std::string_view form) {
  std::vector<double> values;
  std::string_view rest = text;
  while (true) {
    const std::size_t comma = rest.find(',');
    values.push_back(numberOf(option, rest.substr(0, comma)));
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  if (values.size() != count) throw OptionError(fmt::format("{} {}: expected {}", option, text, form));
  return values;
}

void checkPosition(std::string_view option, double lat, double lon) {
  if (lat < -90 || lat > 90 || lon < -180 || lon > 180)
    throw OptionError(
        fmt::format("{}: {},{} is not a position (latitude -90 to 90, longitude -180 to 180)", option, lat, lon));
}

}  // namespace

InspectOptions parseOptions(const std::vector<std::string_view>& arguments) {
  InspectOptions o;
  std::size_t next = 0;
  const auto valueOf = [&](std::string_view option) {
    if (next >= arguments.size()) throw OptionError(fmt::format("{} needs a value", option));
    return arguments[next++];
  };
  while (next < arguments.size()) {
    const std::string_view option = arguments[next++];
    if (option == "--help" || option == "-h") {
      o.help = true;
    } else if (option == "--user") {
      const auto v = numbersOf(option, valueOf(option), 2, "LAT,LON");
      checkPosition(option, v[0], v[1]);
      o.state.userLat = v[0];
      o.state.userLon = v[1];
    } else if (option == "--range") {
      const std::string_view text = valueOf(option);
      const double nm = numberOf(option, text);
      // The setting is a list of choices; the decoder never sees any other value.
      const auto& choices = RANGE.choices;
      if (std::find(choices.begin(), choices.end(), nm) == choices.end())
        throw OptionError(fmt::format("--range {}: one of {}", text, fmt::join(choices, ", ")));
      o.state.rangeNm = static_cast<int>(nm);
    } else if (option == "--qnh") {
      const std::string_view text = valueOf(option);
      const double hpa = numberOf(option, text);
      if (hpa != std::floor(hpa) || hpa < 900 || hpa > 1100)
        throw OptionError(
            fmt::format("--qnh {}: whole hectopascal from 900 to 1100, as the QNH Reader holds it", text));
      o.state.qnh = static_cast<int>(hpa);
    } else if (option == "--park") {
      const auto v = numbersOf(option, valueOf(option), 3, "LAT,LON,ELEVATION_FT");
      checkPosition(option, v[0], v[1]);
      o.state.park = ParkAirport{v[0], v[1], v[2]};
    } else if (option == "--airborne-only") {
      o.state.airborneOnly = true;
    } else {
      throw OptionError(fmt::format("unknown option {} (--help lists them)", option));
    }
  }
  return o;
}

std::string usageText() {
  return fmt::format(
      "feed_inspect [options] < lines\n"
      "Decodes each traffic line of standard input as the Traffic Reader does and prints one JSON\n"
      "object a line: kind \"msg\" with the decoded fields, \"drop\", or \"log\" with the log text.\n"
      "  --user LAT,LON              the user's position (default 0,0)\n"
      "  --range NM                  RANGE, one of {} (default 40)\n"
      "  --qnh HPA                   the QNH, whole hectopascal from 900 to 1100 (default 1013)\n"
      "  --park LAT,LON,ELEV_FT      the park airport and its elevation in feet (default none)\n"
      "  --airborne-only             AIRBORNE_ONLY set\n"
      "  --help                      this list\n",
      fmt::join(RANGE.choices, ", "));
}

}  // namespace orv::inspect
