#include "platform/simconnect/standin_simvars.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

namespace orv::standin::detail {
namespace {

enum class Dim { Angle, Length, Speed, Percent, Temperature, Bool, Number, Seconds, Mask, Text };

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kKnotsPerFootPerSecond = 1.0 / 1.6878098571011957;

struct VarInfo {
  SimVar var;
  const char* name;   // upper case, single blanks
  Dim dim;
  double native;      // native unit per canonical unit of the dimension
  bool settable;
};

// Canonical units: radian, foot, foot per second, percent, rankine.
constexpr VarInfo kVars[] = {
    {SimVar::SpoilersHandle, "SPOILERS HANDLE POSITION", Dim::Percent, 1, true},
    {SimVar::Throttle1, "GENERAL ENG THROTTLE LEVER POSITION:1", Dim::Percent, 1, true},
    {SimVar::Throttle2, "GENERAL ENG THROTTLE LEVER POSITION:2", Dim::Percent, 1, true},
    {SimVar::Latitude, "PLANE LATITUDE", Dim::Angle, kDegreesPerRadian, true},
    {SimVar::Longitude, "PLANE LONGITUDE", Dim::Angle, kDegreesPerRadian, true},
    {SimVar::Pitch, "PLANE PITCH DEGREES", Dim::Angle, 1, true},
    {SimVar::Bank, "PLANE BANK DEGREES", Dim::Angle, 1, true},
    {SimVar::Heading, "PLANE HEADING DEGREES TRUE", Dim::Angle, 1, true},
    {SimVar::Altitude, "PLANE ALTITUDE", Dim::Length, 1, true},
    {SimVar::VerticalSpeed, "VERTICAL SPEED", Dim::Speed, 1, true},
    {SimVar::AirspeedTrue, "AIRSPEED TRUE", Dim::Speed, kKnotsPerFootPerSecond, true},
    {SimVar::IndicatedAltitude, "INDICATED ALTITUDE", Dim::Length, 1, false},
    {SimVar::AltAboveGround, "PLANE ALT ABOVE GROUND", Dim::Length, 1, false},
    {SimVar::GroundAltitude, "GROUND ALTITUDE", Dim::Length, 1, false},
    {SimVar::GroundVelocity, "GROUND VELOCITY", Dim::Speed, kKnotsPerFootPerSecond, false},
    {SimVar::ZuluTime, "ZULU TIME", Dim::Seconds, 1, false},
    {SimVar::ZuluDayOfYear, "ZULU DAY OF YEAR", Dim::Number, 1, false},
    {SimVar::ZuluYear, "ZULU YEAR", Dim::Number, 1, false},
    {SimVar::LightStates, "LIGHT STATES", Dim::Mask, 1, false},
    {SimVar::StandardAtmTemperature, "STANDARD ATM TEMPERATURE", Dim::Temperature, 1, false},
    {SimVar::SimOnGround, "SIM ON GROUND", Dim::Bool, 1, false},
    {SimVar::AtcId, "ATC ID", Dim::Text, 1, true},
    {SimVar::StaticCgToGround, "STATIC CG TO GROUND", Dim::Length, 1, false},
    {SimVar::StaticPitch, "STATIC PITCH", Dim::Angle, 1, false},
    {SimVar::Title, "TITLE", Dim::Text, 1, false},
    {SimVar::AtcModel, "ATC MODEL", Dim::Text, 1, false},
};

struct UnitInfo {
  const char* name;  // lower case
  Dim dim;
  double factor;     // unit per canonical unit
};

constexpr UnitInfo kUnits[] = {
    {"radian", Dim::Angle, 1},
    {"radians", Dim::Angle, 1},
    {"degree", Dim::Angle, kDegreesPerRadian},
    {"degrees", Dim::Angle, kDegreesPerRadian},
    {"foot", Dim::Length, 1},
    {"feet", Dim::Length, 1},
    {"meter", Dim::Length, 0.3048},
    {"meters", Dim::Length, 0.3048},
    {"metre", Dim::Length, 0.3048},
    {"metres", Dim::Length, 0.3048},
    {"feet per second", Dim::Speed, 1},
    {"feet per minute", Dim::Speed, 60},
    {"knot", Dim::Speed, kKnotsPerFootPerSecond},
    {"knots", Dim::Speed, kKnotsPerFootPerSecond},
    {"meters per second", Dim::Speed, 0.3048},
    {"percent", Dim::Percent, 1},
    {"percent over 100", Dim::Percent, 0.01},
    {"rankine", Dim::Temperature, 1},
    {"kelvin", Dim::Temperature, 5.0 / 9.0},
    {"bool", Dim::Bool, 1},
    {"number", Dim::Number, 1},
    {"second", Dim::Seconds, 1},
    {"seconds", Dim::Seconds, 1},
    {"mask", Dim::Mask, 1},
};

// Upper or lower case, with runs of blanks made one, ends trimmed.
std::string normalised(const char* text, bool upper) {
  std::string out;
  bool blank = false;
  for (const char* p = text; *p; ++p) {
    const auto c = static_cast<unsigned char>(*p);
    if (std::isspace(c)) {
      blank = !out.empty();
      continue;
    }
    if (blank) out += ' ';
    blank = false;
    out += static_cast<char>(upper ? std::toupper(c) : std::tolower(c));
  }
  return out;
}

std::size_t stringSize(SIMCONNECT_DATATYPE type) {
  switch (type) {
    case SIMCONNECT_DATATYPE_STRING8: return 8;
    case SIMCONNECT_DATATYPE_STRING32: return 32;
    case SIMCONNECT_DATATYPE_STRING64: return 64;
    case SIMCONNECT_DATATYPE_STRING128: return 128;
    case SIMCONNECT_DATATYPE_STRING256: return 256;
    case SIMCONNECT_DATATYPE_STRING260: return 260;
    default: return 0;
  }
}

bool isStringType(SIMCONNECT_DATATYPE type) {
  return stringSize(type) > 0 || type == SIMCONNECT_DATATYPE_STRINGV;
}

bool isNumberType(SIMCONNECT_DATATYPE type) {
  return type == SIMCONNECT_DATATYPE_INT32 || type == SIMCONNECT_DATATYPE_INT64 ||
         type == SIMCONNECT_DATATYPE_FLOAT32 || type == SIMCONNECT_DATATYPE_FLOAT64;
}

const char* typeName(SIMCONNECT_DATATYPE type) {
  switch (type) {
    case SIMCONNECT_DATATYPE_INT32: return "INT32";
    case SIMCONNECT_DATATYPE_INT64: return "INT64";
    case SIMCONNECT_DATATYPE_FLOAT32: return "FLOAT32";
    case SIMCONNECT_DATATYPE_FLOAT64: return "FLOAT64";
    case SIMCONNECT_DATATYPE_STRING8: return "STRING8";
    case SIMCONNECT_DATATYPE_STRING32: return "STRING32";
    case SIMCONNECT_DATATYPE_STRING64: return "STRING64";
    case SIMCONNECT_DATATYPE_STRING128: return "STRING128";
    case SIMCONNECT_DATATYPE_STRING256: return "STRING256";
    case SIMCONNECT_DATATYPE_STRING260: return "STRING260";
    case SIMCONNECT_DATATYPE_STRINGV: return "STRINGV";
    default: return "INVALID";
  }
}

bool unitFits(Dim var, Dim unit) {
  if (var == unit) return true;
  // "Number" is the simulator's catch-all for plain counts and flags.
  return unit == Dim::Number && (var == Dim::Bool || var == Dim::Mask || var == Dim::Seconds);
}

double numericValue(SimVar var, const ObjectState& o, const SimContext& c) {
  using namespace std::chrono;
  const auto days = static_cast<std::int64_t>(std::floor(c.zuluSeconds / 86400.0));
  switch (var) {
    case SimVar::SpoilersHandle: return o.spoilersPercent;
    case SimVar::Throttle1: return o.throttlePercent[0];
    case SimVar::Throttle2: return o.throttlePercent[1];
    case SimVar::Latitude: return o.latitude;
    case SimVar::Longitude: return o.longitude;
    case SimVar::Pitch: return o.pitchRad;
    case SimVar::Bank: return o.bankRad;
    case SimVar::Heading: return o.headingRad;
    case SimVar::Altitude:
    case SimVar::IndicatedAltitude: return o.altitudeFt;
    case SimVar::VerticalSpeed: return o.verticalSpeedFps;
    case SimVar::AirspeedTrue: return o.trueAirspeedKt;
    case SimVar::AltAboveGround: return o.altitudeFt - c.terrainFt;
    case SimVar::GroundAltitude: return c.terrainFt;
    case SimVar::GroundVelocity: return o.groundSpeedKt;
    case SimVar::ZuluTime: return c.zuluSeconds - static_cast<double>(days) * 86400.0;
    case SimVar::ZuluDayOfYear: {
      const year_month_day date{sys_days{std::chrono::days{days}}};
      return static_cast<double>((sys_days{std::chrono::days{days}} - sys_days{date.year() / January / 1}).count() + 1);
    }
    case SimVar::ZuluYear: {
      const year_month_day date{sys_days{std::chrono::days{days}}};
      return static_cast<double>(static_cast<int>(date.year()));
    }
    case SimVar::LightStates: return static_cast<double>(o.lights);
    case SimVar::StandardAtmTemperature: {
      const double kelvin = o.altitudeFt < 36089.0 ? 288.15 - 0.0019812 * o.altitudeFt : 216.65;
      return kelvin * 1.8;
    }
    case SimVar::SimOnGround: return isOnGround(o, c.terrainFt) ? 1.0 : 0.0;
    case SimVar::StaticCgToGround: return o.staticCgFt;
    case SimVar::StaticPitch: return o.staticPitchRad;
    default: return 0;
  }
}

std::string textValue(SimVar var, const ObjectState& o) {
  switch (var) {
    case SimVar::AtcId: return o.atcId;
    case SimVar::Title: return o.title;
    case SimVar::AtcModel: return o.atcModel;
    default: return {};
  }
}

void setNumeric(SimVar var, ObjectState& o, double v) {
  switch (var) {
    case SimVar::SpoilersHandle: o.spoilersPercent = v; break;
    case SimVar::Throttle1: o.throttlePercent[0] = v; break;
    case SimVar::Throttle2: o.throttlePercent[1] = v; break;
    case SimVar::Latitude: o.latitude = v; break;
    case SimVar::Longitude: o.longitude = v; break;
    case SimVar::Pitch: o.pitchRad = v; break;
    case SimVar::Bank: o.bankRad = v; break;
    case SimVar::Heading: o.headingRad = v; break;
    case SimVar::Altitude: o.altitudeFt = v; break;
    case SimVar::VerticalSpeed: o.verticalSpeedFps = v; break;
    case SimVar::AirspeedTrue:
      // No wind in the stand-in: over the ground as through the air.
      o.trueAirspeedKt = v;
      o.groundSpeedKt = v;
      break;
    default: break;
  }
}

template <class T>
void appendRaw(std::vector<std::uint8_t>& block, T value) {
  std::uint8_t bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  block.insert(block.end(), bytes, bytes + sizeof(T));
}

template <class T>
T readRaw(const std::uint8_t* data) {
  T value;
  std::memcpy(&value, data, sizeof(T));
  return value;
}

template <class I>
I toInteger(double v) {
  if (!std::isfinite(v)) return 0;
  const double t = std::trunc(v);
  if (t <= static_cast<double>(std::numeric_limits<I>::min())) return std::numeric_limits<I>::min();
  if (t >= static_cast<double>(std::numeric_limits<I>::max())) return std::numeric_limits<I>::max();
  return static_cast<I>(t);
}

}  // namespace

BindResult bindDatum(const char* datumName, const char* unitsName, SIMCONNECT_DATATYPE type) {
  BindResult result;
  if (datumName == nullptr) {
    result.exception = SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED;
    return result;
  }
  const std::string name = normalised(datumName, true);
  const VarInfo* var = nullptr;
  for (const auto& v : kVars) {
    if (name == v.name) var = &v;
  }
  if (var == nullptr) {
    result.exception = SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED;
    return result;
  }
  const std::string unit = unitsName ? normalised(unitsName, false) : std::string();
  DatumBinding d;
  d.var = var->var;
  d.type = type;
  d.settable = var->settable;
  d.description = fmt::format("{}|{}|{}", datumName, unitsName ? unitsName : "", typeName(type));
  if (var->dim == Dim::Text) {
    if (!unit.empty()) {
      result.exception = SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED;
      return result;
    }
    if (!isStringType(type)) {
      result.exception = SIMCONNECT_EXCEPTION_INVALID_DATA_TYPE;
      return result;
    }
    d.size = stringSize(type);
    result.binding = d;
    return result;
  }
  const UnitInfo* u = nullptr;
  for (const auto& info : kUnits) {
    if (unit == info.name) u = &info;
  }
  if (u == nullptr || !unitFits(var->dim, u->dim)) {
    result.exception = SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED;
    return result;
  }
  if (!isNumberType(type)) {
    result.exception = SIMCONNECT_EXCEPTION_INVALID_DATA_TYPE;
    return result;
  }
  d.sameUnit = u->factor == var->native;
  d.scale = d.sameUnit ? 1.0 : u->factor / var->native;
  d.size = (type == SIMCONNECT_DATATYPE_INT32 || type == SIMCONNECT_DATATYPE_FLOAT32) ? 4 : 8;
  result.binding = d;
  return result;
}

void appendDatum(std::vector<std::uint8_t>& block, const DatumBinding& d, const ObjectState& o,
                 const SimContext& c) {
  if (isStringType(d.type)) {
    const std::string text = textValue(d.var, o);
    if (d.type == SIMCONNECT_DATATYPE_STRINGV) {
      block.insert(block.end(), text.begin(), text.end());
      block.push_back(0);
      return;
    }
    const std::size_t copied = std::min(text.size(), d.size - 1);
    block.insert(block.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(copied));
    block.insert(block.end(), d.size - copied, std::uint8_t{0});
    return;
  }
  double v = numericValue(d.var, o, c);
  if (!d.sameUnit) v *= d.scale;
  switch (d.type) {
    case SIMCONNECT_DATATYPE_INT32: appendRaw(block, toInteger<std::int32_t>(v)); break;
    case SIMCONNECT_DATATYPE_INT64: appendRaw(block, toInteger<std::int64_t>(v)); break;
    case SIMCONNECT_DATATYPE_FLOAT32: appendRaw(block, static_cast<float>(v)); break;
    default: appendRaw(block, v); break;
  }
}

std::optional<std::size_t> applyDatum(const std::uint8_t* data, std::size_t available, const DatumBinding& d,
                                      ObjectState& o) {
  if (isStringType(d.type)) {
    std::size_t length = 0;
    std::size_t taken = 0;
    if (d.type == SIMCONNECT_DATATYPE_STRINGV) {
      while (length < available && data[length] != 0) ++length;
      if (length == available) return std::nullopt;
      taken = length + 1;
    } else {
      if (available < d.size) return std::nullopt;
      while (length < d.size && data[length] != 0) ++length;
      taken = d.size;
    }
    if (d.var == SimVar::AtcId) o.atcId.assign(reinterpret_cast<const char*>(data), length);
    return taken;
  }
  if (available < d.size) return std::nullopt;
  double v = 0;
  switch (d.type) {
    case SIMCONNECT_DATATYPE_INT32: v = readRaw<std::int32_t>(data); break;
    case SIMCONNECT_DATATYPE_INT64: v = static_cast<double>(readRaw<std::int64_t>(data)); break;
    case SIMCONNECT_DATATYPE_FLOAT32: v = readRaw<float>(data); break;
    default: v = readRaw<double>(data); break;
  }
  if (!d.sameUnit) v /= d.scale;
  setNumeric(d.var, o, v);
  return d.size;
}

bool isOnGround(const ObjectState& object, double terrainFt) {
  return object.altitudeFt <= terrainFt + object.staticCgFt + 1e-6;
}

}  // namespace orv::standin::detail
