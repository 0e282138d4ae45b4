#include "parking/park_airports.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <optional>
#include <set>
#include <stdexcept>
#include <vector>

#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_paths.h"
#include "airportdata/stands.h"
#include "engine/geodesy.h"
#include "engine/reserved_stand.h"
#include "engine/stand_contention.h"
#include "engine/user_snapshot.h"
#include "foundation/atomic_file.h"
#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/status_values.h"
#include "foundation/text_encoding.h"
#include "foundation/text_utils.h"
#include "parking/park_airport_sight.h"

namespace orv {
namespace {

constexpr std::size_t kManyAirports = 3000;
// Two positions this close in both coordinates are the same for the sort.
constexpr double kSamePositionDeg = 1e-8;

struct LastSort {
  bool done = false;
  double lat = 0, lon = 0;
};
LastSort gLastSort;

std::string fileName() { return std::string(kMyParkAirportsFile); }

std::vector<std::string> splitFields(const std::string& line) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = line.find(',', start);
    fields.push_back(gf_trim(std::string_view(line).substr(start, comma - start)));
    if (comma == std::string::npos) return fields;
    start = comma + 1;
  }
}

std::optional<FixedCode<4>> codeOf(std::string_view text) {
  try {
    return FixedCode<4>(text);
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

bool readList() {
  gParkAirports.clear();
  bool ok = true;
  const std::filesystem::path path = gf_localPath(kMyParkAirportsFile);
  std::vector<std::string> lines;
  const TextEncoding encoding = gf_detectEncoding(path);
  if (encoding == TextEncoding::Unopenable || !gf_readLines(encoding, path, lines)) {
    gf_log("{} not found", fileName());
    lines.clear();
  }
  std::set<std::string> seen;
  std::size_t lineNumber = 0;
  for (const std::string& raw : lines) {
    ++lineNumber;
    if (gf_trim(raw).empty()) continue;
    const std::vector<std::string> fields = splitFields(raw);
    if (fields.size() > 2) {
      gf_log("{}:{} wrong syntax, skipped", fileName(), lineNumber);
      continue;
    }
    const std::string& code = fields[0];
    const auto icao = codeOf(code);
    // "eham" and "EHAM" are one airport.
    if (!seen.insert(icao ? icao->str() : code).second) {
      gf_log("{}:{} double, skipped", fileName(), code);
      continue;
    }
    const RtAirport* airport = findRtAirport(code);
    if (airport == nullptr || !icao) {
      gf_log("airport {} is unknown", code);
      ok = false;
      continue;
    }
    gParkAirports.push_back({fields.size() == 2 ? fields[1] : std::string{}, airport->latitude, airport->longitude, 0, *icao});
  }
  const std::size_t count = gParkAirports.size();
  gf_log("\n{:5} park airport{} read from '{}'", count, count == 1 ? "" : "s", fileName());
  if (count > kManyAirports)
    gf_log("Warning: There are a lot of airports ({}), that will cost {} much cpu time and may cause stutters", count,
           kProgramName);

  // The user's add-on airports park too.
  std::error_code ec;
  const std::filesystem::path addons = gf_localPath(kMyThirdPartyFolder);
  if (std::filesystem::is_directory(addons, ec)) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(addons, ec)) {
      if (!entry.is_regular_file(ec)) continue;
      const std::string stem = entry.path().stem().string();
      const auto icao = codeOf(stem);
      if (stem.size() != 4 || !icao || seen.contains(icao->str())) continue;
      const RtAirport* airport = findRtAirport(icao->view());
      if (airport == nullptr) continue;
      seen.insert(icao->str());
      gParkAirports.push_back({{}, airport->latitude, airport->longitude, 0, *icao});
    }
  }
  return ok;
}

}  // namespace

bool lf_readMyParkAirports() {
  try {
    return readList();
  } catch (const std::exception& e) {
    gf_log("lf_readMyParkAirports: {}", e.what());
    return false;
  }
}

void updateParkFile() {
  if (gParkAirports.empty()) return;
  const ParkAirportEntry& head = gParkAirports.front();
  const std::string line = head.stand.empty() ? head.icao.str() : fmt::format("{},{}", head.icao.view(), head.stand);
  const std::filesystem::path path = gf_localPath(kMyParkAirportsFile);
  std::vector<std::string> lines;
  const TextEncoding encoding = gf_detectEncoding(path);
  const bool exists = encoding != TextEncoding::Unopenable && gf_readLines(encoding, path, lines);
  if (!exists) {
    lines = {line};
    gf_log("{} created with {}", fileName(), line);
  } else {
    const auto same = std::find_if(lines.begin(), lines.end(), [&](const std::string& l) {
      return !gf_trim(l).empty() && codeOf(splitFields(l)[0]) == head.icao;
    });
    if (same == lines.end()) {
      lines.insert(lines.begin(), line);
      gf_log("{}:{} new entry", fileName(), line);
    } else if (*same != line) {
      *same = line;
      gf_log("{}:{} updated stand", fileName(), line);
    } else {
      return;
    }
  }
  std::string error;
  if (!gf_writeFileAtomically(
          path,
          [&](std::ostream& out) {
            // The lines are UTF-8 as read, whatever they hold: the mark keeps a later read from
            // taking them for another encoding.
            out << "\xEF\xBB\xBF";
            for (const std::string& l : lines) out << l << '\n';
          },
          &error))
    gf_log("saving: {} failed", fileName());
}

void lf_sortParkAirports(double lat, double lon) {
  if (gParkAirports.empty()) return;
  const LatLon user{lat, lon};
  if (gLastSort.done && std::fabs(lat - gLastSort.lat) <= kSamePositionDeg &&
      std::fabs(lon - gLastSort.lon) <= kSamePositionDeg) {
    ParkAirportEntry& head = gParkAirports.front();
    head.distance = gf_distance(user, {head.latitude, head.longitude});
    return;
  }
  gLastSort = {true, lat, lon};
  if (!DESTINATION.value.empty()) return;
  for (ParkAirportEntry& e : gParkAirports) e.distance = gf_distance(user, {e.latitude, e.longitude});
  gParkAirports.sort([](const ParkAirportEntry& a, const ParkAirportEntry& b) { return a.distance < b.distance; });
}

bool reReadParkAirports(bool atRun, std::string& message) {
  if (!lf_readMyParkAirports()) return false;
  lf_lookUpDestination();
  if (atRun && !gv_parkIcao.empty() && gv_userOnGround.load() && !gParkAirports.empty()) {
    const ParkAirportEntry& head = gParkAirports.front();
    if (head.icao == gv_parkIcao && !head.stand.empty() && head.stand != gReservedStand) {
      message = fmt::format("reserved stand changed from '{}' to '{}'", gReservedStand, head.stand);
      for (Stand& s : gStands) s.reserved = false;
      gReservedStand = head.stand;
      const bool found =
          std::any_of(gStands.begin(), gStands.end(), [](const Stand& s) { return s.id == gReservedStand; });
      reserveStands();
      gParkingStatus.reservedStand.show(gReservedStand);
      gParkingStatus.reservedMark.show(found);
      lf_keepStandFree(gReservedStand);
    }
  }
  if (message.empty()) message = "park airports and stands are okay";
  return true;
}

void computeAutoRange() {
  std::int32_t range = 0;
  const double alt = gUserSnapshot.alt;
  if (gv_userOnGround.load()) {
    range = 10;
  } else if (alt > AR_ABOVE_HEIGHT.value) {
    range = 100;
  } else if (alt > AIRP_HEIGHT.value) {
    range = 40;
  } else {
    const double d = gParkAirports.empty() ? 10000.0 : gParkAirports.front().distance;
    if (d <= 7) {
      range = 10;
    } else if (d >= 37) {
      range = 40;
    } else {
      static constexpr std::pair<long, std::int32_t> kSteps[] = {{33, 35}, {28, 30}, {23, 25}, {19, 20}, {17, 18},
                                                                 {15, 16}, {13, 14}, {11, 12}, {9, 10}};
      const long rounded = std::lround(d);
      range = 8;
      for (const auto& [from, r] : kSteps) {
        if (rounded >= from) {
          range = r;
          break;
        }
      }
    }
  }
  if (range != RANGE.value) gf_setRange(range);
}

void lf_lookUpDestination() {
  if (DESTINATION.value.empty()) return;
  const RtAirport* airport = findRtAirport(DESTINATION.value);
  if (airport == nullptr) return;
  auto same = std::find_if(gParkAirports.begin(), gParkAirports.end(),
                           [&](const ParkAirportEntry& e) { return e.icao == airport->icao; });
  if (same == gParkAirports.end())
    gParkAirports.push_front({{}, airport->latitude, airport->longitude, 0, airport->icao});
  else
    gParkAirports.splice(gParkAirports.begin(), gParkAirports, same);
}

void lf_resetParkAirportList() { gLastSort = {}; }

}  // namespace orv
