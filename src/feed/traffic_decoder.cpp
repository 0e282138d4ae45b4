#include "feed/traffic_decoder.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "engine/engine_tick.h"
#include "engine/traffic_queue.h"
#include "engine/geodesy.h"
#include "foundation/log.h"
#include "foundation/parameters.h"
#include "foundation/time_text.h"
#include "refdata/code_tables.h"

namespace orv {
namespace {

constexpr std::string_view kNull = "null";

// The exact semantics of from_chars: the whole leading number, no plus sign, no blanks;
// an empty field is an error. Trailing text after the number is ignored.
bool readNumber(std::string_view field, double& out) {
  const auto r = std::from_chars(field.data(), field.data() + field.size(), out);
  return r.ec == std::errc();
}

double namedNumber(std::string_view name, std::string_view field) {
  double v = 0;
  if (!readNumber(field, v)) throw std::runtime_error(fmt::format("{}:{}", name, field));
  return v;
}

bool isUnwantedModel(std::string_view model) {
  static constexpr std::array<std::string_view, 10> kinds{"BALL", "EMER", "GLID", "GRND", "GND",
                                                          "PARA", "SERV", "SHIP", "VENT", "TWR"};
  return std::find(kinds.begin(), kinds.end(), model) != kinds.end();
}

bool isUnwantedCategory(std::string_view category) {
  // Balloons, gliders, parachutists and surface vehicles.
  static constexpr std::array<std::string_view, 5> categories{"B1", "B2", "B4", "C1", "C2"};
  return std::find(categories.begin(), categories.end(), category) != categories.end();
}

bool isTestCallsign(std::string_view cs) {
  static constexpr std::array<std::string_view, 6> tests{"ERARMTR0", "ERARMTR1", "AIRPORT1", "00000000", "TR852", "TEST"};
  return std::find(tests.begin(), tests.end(), cs) != tests.end();
}

double estimatedTas(double alt) {
  if (alt <= 2000) return 180;
  if (alt <= 5000) return 220;
  if (alt <= 10000) return 250;
  if (alt <= 20000) return 350;
  return 430;
}

// A report's time: finite, and between 1970 and 2100, so that casting it to whole seconds is
// defined and the weekday and time of day drawn from it mean something.
double reportTime(std::string_view field) {
  const double t = namedNumber("timestamp", field);
  if (!(t >= 0.0 && t < 4102444800.0)) throw std::runtime_error(fmt::format("{}:{}", "timestamp", field));
  return t;
}

FixedCode<3> routeCode(std::string_view field) { return field == kNull ? FixedCode<3>() : FixedCode<3>(field); }

}  // namespace

void TrafficDecoder::setUserPosition(double lat, double lon) {
  userLat_.store(lat, std::memory_order_relaxed);
  userLon_.store(lon, std::memory_order_relaxed);
}

void TrafficDecoder::setParkAirport(double lat, double lon, double elevation) {
  parkChosen_ = false;
  parkLat_ = lat;
  parkLon_ = lon;
  parkElev_ = elevation;
  parkChosen_ = true;
}

void TrafficDecoder::clearParkAirport() { parkChosen_ = false; }

void TrafficDecoder::processLine(std::string_view line) {
  // A ground vehicle.
  if (line.find(" VEH") != std::string_view::npos) return;
  line_ = line;
  fieldCount_ = 0;
  rest_ = line.data();
  // The fields up to the time stamp suffice for the range test; most lines end there.
  splitUpTo(kRangeFields);
  processLineSub();
}

void TrafficDecoder::splitUpTo(std::size_t count) {
  const char* end = line_.data() + line_.size();
  if (!rest_) {
    // The whole line is split already.
  } else {
    while (fieldCount_ < count && fieldCount_ + 1 < kMaxFields) {
      const void* comma = std::memchr(rest_, ',', static_cast<std::size_t>(end - rest_));
      if (!comma) break;
      const char* c = static_cast<const char*>(comma);
      fields_[fieldCount_++] = std::string_view(rest_, static_cast<std::size_t>(c - rest_));
      rest_ = c + 1;
    }
    if (fieldCount_ < count) {
      // The last piece is the rest of the line; a line ending in "," has an empty last field.
      fields_[fieldCount_++] = std::string_view(rest_, static_cast<std::size_t>(end - rest_));
      rest_ = nullptr;
    }
  }
  // A short line must not find an earlier line's fields behind its own: they read as empty,
  // which fails the number that needs them, with a log entry.
  if (!rest_ && fieldCount_ < count)
    std::fill(fields_.begin() + static_cast<std::ptrdiff_t>(fieldCount_), fields_.begin() + static_cast<std::ptrdiff_t>(count),
              std::string_view());
}

void TrafficDecoder::processLineSub() {
  try {
    const auto f = [this](std::size_t i) { return fields_[i]; };
    lastTimestamp_ = reportTime(f(14));
    gv_feedTimestamp.store(static_cast<std::int64_t>(lastTimestamp_), std::memory_order_relaxed);
    const LatLon pos{namedNumber("lat", f(2)), namedNumber("lon", f(3))};
    if (!(pos.lat >= -90 && pos.lat <= 90 && pos.lon >= -180 && pos.lon <= 180 &&
          (std::fabs(pos.lat) > 0.0001 || std::fabs(pos.lon) > 0.0001)))
      throw std::runtime_error(fmt::format("invalid lalo: {:.6f},{:.6f}", pos.lat, pos.lon));
    const LatLon user{userLat_.load(std::memory_order_relaxed), userLon_.load(std::memory_order_relaxed)};
    const double range = gv_rangeNm.load(std::memory_order_relaxed);
    // A degree of latitude is 60 nm and no great circle is shorter: most of the world's
    // traffic leaves here without the trigonometry.
    if (std::fabs(pos.lat - user.lat) * 60.0 > range * (1.0 + 1e-9) || gf_distance(user, pos) > range) return;
    splitUpTo(kMaxFields);
    TrafficMsg msg;
    Sample& s = msg.sample;
    s.lat = pos.lat;
    s.lon = pos.lon;

    std::string_view reg = f(11);
    if (reg.size() > 12) return;
    if (reg == kNull) reg = {};

    const std::string_view csField = f(9);
    if (gCollectCallsigns.load(std::memory_order_relaxed) && !csField.empty() && csField != kNull &&
        csField.find('@') == std::string_view::npos) {
      std::lock_guard lock(gLiveCallsignsMutex);
      gLiveCallsignsIncoming.emplace(csField);
    }

    const std::string_view model = f(10);
    if (model.empty() || model == kNull || isUnwantedCategory(f(28)) || model.size() > 4 || isUnwantedModel(model))
      return;
    msg.ident.code.acType = modelIndex(model);

    if (f(17) == "adsb_icao") {
      const double h = namedNumber("trueheading", f(25));
      if (h == 0.0) {
        s.trueHeading.set(kTwoPi);
        s.precise = 1;
      } else if (h > 0.0 && h <= 360.0) {
        s.trueHeading.set(h / kDegreesPerRadian);
        s.precise = 1;
      } else if (h > 360.0) {
        throw std::runtime_error(fmt::format("trueheading: {:.2f}", h));
      }
    }

    const std::string_view hexField = f(1);
    std::uint32_t hexid = 0;
    const auto hr = std::from_chars(hexField.data(), hexField.data() + hexField.size(), hexid);
    if (hr.ec != std::errc())
      throw std::runtime_error(fmt::format("hexid incorrect{}", hexField));
    if (hexid <= 10000) return;
    msg.hexid = hexid;

    s.gs = namedNumber("gs", f(8));
    double alt = 0;
    if (!correctAltitude(s.gs, alt)) return;
    s.alt = alt;
    s.airborne = alt > 0 ? 1 : 0;

    std::string_view cs = csField;
    if (cs == kNull || cs.find('@') != std::string_view::npos) cs = {};
    if (isTestCallsign(cs)) return;
    if (cs.empty() && reg.empty()) return;

    if (!s.airborne) {
      // Aircraft on the ground interest the system only around the user's airport.
      if (!parkChosen_.load()) return;
      if (gf_distance({parkLat_.load(), parkLon_.load()}, pos) > 5.0) return;
    }

    const std::string_view trackField = f(7);
    if (!trackField.empty() && !readNumber(trackField, s.track))
      throw std::runtime_error(fmt::format("track incorrect {}", trackField));
    if ((trackField.empty() || s.track == 0.0) && s.trueHeading) s.track = s.trueHeading.value * kDegreesPerRadian;

    s.vs = namedNumber("vs", f(5));
    msg.ident.from = routeCode(f(12));
    msg.ident.to = routeCode(f(13));

    if (s.airborne) {
      const double roll = namedNumber("roll", f(23));
      if (roll != -1.0 && roll != 0.0) s.roll.set(-roll / kDegreesPerRadian);
    }

    const std::string_view tasField = f(20);
    if (!readNumber(tasField, s.tas)) throw std::runtime_error(fmt::format("TAS incorrect{}", tasField));
    if (s.tas == -1.0) s.tas = estimatedTas(alt);

    s.stopped = 0;
    // A report is shown 30 seconds after it arrives; a tick that is one step old does no harm.
    s.tick = gv_tick.load(std::memory_order_relaxed) + 3000;
    msg.timestamp = lastTimestamp_;
    msg.ident.cs.assign(cs);
    msg.ident.reg.assign(reg);

    if (gTrafficQueue.post(std::move(msg))) ++queued_;
  } catch (const std::exception& e) {
    ++failed_;
    gf_log("exception in processLineSub: {}", e.what());
  }
}

bool TrafficDecoder::correctAltitude(double gs, double& alt) const {
  const std::string_view field = fields_[4];
  if (!readNumber(field, alt)) throw std::runtime_error(fmt::format("altitude {} incorrect, from: {}", field, line_));
  const bool chosen = parkChosen_.load();
  if (alt <= 0) {
    alt = 0;
  } else {
    // The feed's altitude is at standard pressure; 27 feet per hectopascal bring it to QNH.
    alt = std::max(0.0, alt + (qnh.load(std::memory_order_relaxed) - 1013.25) * 27.0);
    if (alt > 0 && alt < 14000) {
      const double base = chosen ? parkElev_.load() : -1000.0;
      const double h = alt - base;
      // Just above the airport at low speed: on the ground.
      if (h <= 0 || (h <= 42 && gs <= 120) || (h <= 84 && gs <= 80) || (h <= 108 && gs <= 43)) alt = 0;
    }
    if (gs <= 35 && alt > 0) alt = 0;
  }
  if (AIRBORNE_ONLY.value) {
    const double e = chosen ? parkElev_.load() : 0.0;
    return alt - e > 150.0;
  }
  return true;
}

}  // namespace orv
