#include "platform/simconnect/standin_scenario.h"

#include "platform/simconnect/standin_installed_titles.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <fstream>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/simconnect/standin_control.h"
#include "platform/simconnect/standin_installed_titles.h"

namespace orv::standin {
namespace {

using nlohmann::json;

// Rough figures of common models, enough to give each kind its own ground height.
struct BuiltinStatics {
  const char* model;
  ModelStatics statics;
};
constexpr BuiltinStatics kBuiltinStatics[] = {
    {"A320", {9.0, 0.4}}, {"A321", {9.2, 0.3}}, {"A319", {8.9, 0.4}}, {"A332", {13.5, 0.3}},
    {"A359", {14.5, 0.3}}, {"A388", {17.0, 0.2}}, {"B738", {8.5, 0.5}}, {"B737", {8.4, 0.5}},
    {"B38M", {8.6, 0.5}}, {"B772", {14.0, 0.2}}, {"B77W", {14.2, 0.2}}, {"B744", {15.5, 0.3}},
    {"B748", {15.8, 0.3}}, {"B788", {13.0, 0.3}}, {"E190", {7.5, 0.6}}, {"CRJ7", {7.0, 0.8}},
    {"DH8D", {8.0, 0.0}}, {"AT76", {8.0, 0.3}}, {"C172", {4.0, 1.5}}, {"TBM9", {5.0, 1.0}},
    {"EC35", {4.5, 0.0, true}}, {"EC45", {4.8, 0.0, true}}, {"H135", {4.5, 0.0, true}},
    {"H145", {4.8, 0.0, true}}, {"H125", {4.3, 0.0, true}}, {"AS50", {4.3, 0.0, true}},
    {"B06", {4.0, 0.0, true}},  {"B407", {4.2, 0.0, true}}, {"R44", {3.5, 0.0, true}},
    {"S76", {5.5, 0.0, true}},  {"A109", {4.6, 0.0, true}}, {"CABR", {3.5, 0.0, true}},
};
constexpr ModelStatics kDefaultStatics{8.0, 0.5};

class Reader {
 public:
  explicit Reader(std::string_view origin) : origin_(origin) {}

  [[noreturn]] void fail(std::string_view where, std::string_view what) const {
    if (where.empty()) throw ScenarioError(fmt::format("scenario '{}': {}", origin_, what));
    throw ScenarioError(fmt::format("scenario '{}': {}: {}", origin_, where, what));
  }

  void requireObject(const json& j, std::string_view where) const {
    if (!j.is_object()) fail(where, fmt::format("must be a JSON object, not {}", j.type_name()));
  }

  void checkKeys(const json& j, std::string_view where, std::initializer_list<std::string_view> allowed) const {
    for (const auto& item : j.items()) {
      if (std::find(allowed.begin(), allowed.end(), item.key()) == allowed.end()) {
        std::string list;
        for (auto a : allowed) list += (list.empty() ? "" : ", ") + std::string(a);
        fail(where, fmt::format("unknown key '{}' (known: {})", item.key(), list));
      }
    }
  }

  static std::string at(std::string_view where, std::string_view key) {
    return where.empty() ? std::string(key) : fmt::format("{}.{}", where, key);
  }

  bool number(const json& j, std::string_view where, const char* key, double& out) const {
    auto it = j.find(key);
    if (it == j.end()) return false;
    if (!it->is_number()) fail(at(where, key), fmt::format("must be a number, not {}", it->dump()));
    out = it->get<double>();
    return true;
  }
  bool number(const json& j, std::string_view where, const char* key, std::optional<double>& out) const {
    double v = 0;
    if (!number(j, where, key, v)) return false;
    out = v;
    return true;
  }
  bool integer(const json& j, std::string_view where, const char* key, std::int64_t& out, std::int64_t low,
               std::int64_t high) const {
    auto it = j.find(key);
    if (it == j.end()) return false;
    if (!it->is_number_integer()) fail(at(where, key), fmt::format("must be a whole number, not {}", it->dump()));
    std::int64_t v = it->is_number_unsigned() ? static_cast<std::int64_t>(std::min<std::uint64_t>(
                                                   it->get<std::uint64_t>(), std::numeric_limits<std::int64_t>::max()))
                                             : it->get<std::int64_t>();
    if (v < low || v > high) fail(at(where, key), fmt::format("must lie in {} to {}, not {}", low, high, v));
    out = v;
    return true;
  }
  template <class T>
  bool integer(const json& j, std::string_view where, const char* key, T& out, std::int64_t low,
               std::int64_t high) const {
    std::int64_t v = 0;
    if (!integer(j, where, key, v, low, high)) return false;
    out = static_cast<T>(v);
    return true;
  }
  bool boolean(const json& j, std::string_view where, const char* key, bool& out) const {
    auto it = j.find(key);
    if (it == j.end()) return false;
    if (!it->is_boolean()) fail(at(where, key), fmt::format("must be true or false, not {}", it->dump()));
    out = it->get<bool>();
    return true;
  }
  bool boolean(const json& j, std::string_view where, const char* key, std::optional<bool>& out) const {
    bool v = false;
    if (!boolean(j, where, key, v)) return false;
    out = v;
    return true;
  }
  bool text(const json& j, std::string_view where, const char* key, std::string& out) const {
    auto it = j.find(key);
    if (it == j.end()) return false;
    if (!it->is_string()) fail(at(where, key), fmt::format("must be a text, not {}", it->dump()));
    out = it->get<std::string>();
    return true;
  }
  void requireKey(const json& j, std::string_view where, const char* key) const {
    if (!j.contains(key)) fail(where, fmt::format("'{}' is missing", key));
  }

 private:
  std::string origin_;
};

void checkLatLon(const Reader& r, std::string_view where, double lat, double lon) {
  if (lat < -90 || lat > 90) r.fail(where, fmt::format("latitude {} lies outside -90 to 90", lat));
  if (lon < -180 || lon > 180) r.fail(where, fmt::format("longitude {} lies outside -180 to 180", lon));
}

std::int64_t parseZulu(const Reader& r, std::string_view where, const std::string& s) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, sec = 0;
  char tail = 0;
  std::istringstream in(s);
  char dash1 = 0, dash2 = 0, t = 0, c1 = 0, c2 = 0;
  in >> y >> dash1 >> mo >> dash2 >> d >> t >> h >> c1 >> mi >> c2 >> sec >> tail;
  using namespace std::chrono;
  const year_month_day date{year{y}, month{static_cast<unsigned>(mo)}, day{static_cast<unsigned>(d)}};
  if (!in || dash1 != '-' || dash2 != '-' || t != 'T' || c1 != ':' || c2 != ':' || tail != 'Z' || !date.ok() ||
      h > 23 || mi > 59 || sec > 59 || h < 0 || mi < 0 || sec < 0) {
    r.fail(where, fmt::format("'{}' is not a UTC time of the form 2024-06-01T12:00:00Z", s));
  }
  return sys_days{date}.time_since_epoch().count() * 86400LL + h * 3600LL + mi * 60LL + sec;
}

std::array<DWORD, 4> readVersion(const Reader& r, const json& j, std::string_view where) {
  if (!j.is_array() || j.size() != 4) r.fail(where, "must be an array of four whole numbers");
  std::array<DWORD, 4> v{};
  for (std::size_t i = 0; i < 4; ++i) {
    if (!j[i].is_number_unsigned() || j[i].get<std::uint64_t>() > 0xFFFFFFFFull) {
      r.fail(where, fmt::format("element {} must be a whole number from 0, not {}", i, j[i].dump()));
    }
    v[i] = static_cast<DWORD>(j[i].get<std::uint64_t>());
  }
  return v;
}

void readPlacement(const Reader& r, const json& j, std::string_view where, Placement& p) {
  r.number(j, where, "latitude", p.latitude);
  r.number(j, where, "longitude", p.longitude);
  r.number(j, where, "altitudeFt", p.altitudeFt);
  r.number(j, where, "headingDeg", p.headingDeg);
  r.number(j, where, "pitchDeg", p.pitchDeg);
  r.number(j, where, "bankDeg", p.bankDeg);
  r.number(j, where, "groundSpeedKt", p.groundSpeedKt);
  r.boolean(j, where, "onGround", p.onGround);
  if (p.latitude.has_value() != p.longitude.has_value()) r.fail(where, "latitude and longitude come together");
  if (p.latitude) checkLatLon(r, where, *p.latitude, *p.longitude);
}

void readUser(const Reader& r, const json& j, UserAircraft& u) {
  const std::string_view where = "user";
  r.requireObject(j, where);
  r.checkKeys(j, where,
              {"objectId", "title", "atcModel", "atcId", "latitude", "longitude", "altitudeFt", "onGround",
               "headingDeg", "pitchDeg", "bankDeg", "groundSpeedKt", "lights"});
  r.integer(j, where, "objectId", u.objectId, 1, 0xFFFFFFF0LL);
  r.text(j, where, "title", u.title);
  r.text(j, where, "atcModel", u.atcModel);
  r.text(j, where, "atcId", u.atcId);
  r.number(j, where, "latitude", u.latitude);
  r.number(j, where, "longitude", u.longitude);
  checkLatLon(r, where, u.latitude, u.longitude);
  if (r.number(j, where, "altitudeFt", u.altitudeFt) && !j.contains("onGround")) u.onGround = false;
  r.boolean(j, where, "onGround", u.onGround);
  r.number(j, where, "headingDeg", u.headingDeg);
  r.number(j, where, "pitchDeg", u.pitchDeg);
  r.number(j, where, "bankDeg", u.bankDeg);
  r.number(j, where, "groundSpeedKt", u.groundSpeedKt);
  if (u.groundSpeedKt < 0) r.fail(Reader::at(where, "groundSpeedKt"), "must not be negative");
  r.integer(j, where, "lights", u.lights, 0, 0xFFFF);
}

void readTitles(const Reader& r, const json& j, std::vector<TitleEntry>& titles) {
  if (!j.is_array()) r.fail("titles", "must be an array of titles");
  for (std::size_t i = 0; i < j.size(); ++i) {
    const std::string where = fmt::format("titles[{}]", i);
    TitleEntry e;
    if (j[i].is_string()) {
      e.title = j[i].get<std::string>();
    } else {
      r.requireObject(j[i], where);
      r.checkKeys(j[i], where, {"title", "model"});
      r.requireKey(j[i], where, "title");
      r.text(j[i], where, "title", e.title);
      r.text(j[i], where, "model", e.model);
    }
    if (e.title.empty()) r.fail(where, "a title must not be empty");
    titles.push_back(std::move(e));
  }
}

void readModels(const Reader& r, const json& j, std::map<std::string, ModelStatics>& models) {
  r.requireObject(j, "models");
  for (const auto& item : j.items()) {
    const std::string where = fmt::format("models.{}", item.key());
    r.requireObject(item.value(), where);
    r.checkKeys(item.value(), where, {"cgFt", "pitchDeg", "helicopter"});
    ModelStatics m = modelStatics(Scenario{}, item.key());
    r.number(item.value(), where, "cgFt", m.cgFt);
    r.number(item.value(), where, "pitchDeg", m.pitchDeg);
    r.boolean(item.value(), where, "helicopter", m.helicopter);
    if (m.cgFt < 0) r.fail(where, "cgFt must not be negative");
    models[item.key()] = m;
  }
}

void readAirports(const Reader& r, const json& j, std::vector<AirportEntry>& airports) {
  if (!j.is_array()) r.fail("airports", "must be an array of airports");
  for (std::size_t i = 0; i < j.size(); ++i) {
    const std::string where = fmt::format("airports[{}]", i);
    const json& a = j[i];
    r.requireObject(a, where);
    r.checkKeys(a, where,
                {"icao", "region", "name", "latitude", "longitude", "altitudeM", "parkings", "helipads"});
    AirportEntry e;
    r.requireKey(a, where, "icao");
    r.text(a, where, "icao", e.icao);
    if (e.icao.empty() || e.icao.size() > 7) r.fail(where, fmt::format("icao '{}' must have 1 to 7 characters", e.icao));
    r.text(a, where, "region", e.region);
    r.text(a, where, "name", e.name);
    r.requireKey(a, where, "latitude");
    r.requireKey(a, where, "longitude");
    r.number(a, where, "latitude", e.latitude);
    r.number(a, where, "longitude", e.longitude);
    checkLatLon(r, where, e.latitude, e.longitude);
    r.number(a, where, "altitudeM", e.altitudeM);
    if (auto it = a.find("parkings"); it != a.end()) {
      if (!it->is_array()) r.fail(where, "parkings must be an array");
      for (std::size_t k = 0; k < it->size(); ++k) {
        const std::string pw = fmt::format("{}.parkings[{}]", where, k);
        const json& p = (*it)[k];
        r.requireObject(p, pw);
        r.checkKeys(p, pw,
                    {"type", "taxiPointType", "name", "suffix", "number", "orientation", "headingDeg", "radiusM",
                     "biasXM", "biasZM"});
        ParkingEntry pe;
        r.integer(p, pw, "type", pe.type, 0, 1000);
        r.integer(p, pw, "taxiPointType", pe.taxiPointType, 0, 1000);
        r.integer(p, pw, "name", pe.name, 0, 1000);
        r.integer(p, pw, "suffix", pe.suffix, 0, 1000);
        r.integer(p, pw, "number", pe.number, 0, 0xFFFFFFFFLL);
        r.integer(p, pw, "orientation", pe.orientation, 0, 1000);
        r.number(p, pw, "headingDeg", pe.headingDeg);
        r.number(p, pw, "radiusM", pe.radiusM);
        r.number(p, pw, "biasXM", pe.biasXM);
        r.number(p, pw, "biasZM", pe.biasZM);
        e.parkings.push_back(pe);
      }
    }
    if (auto it = a.find("helipads"); it != a.end()) {
      if (!it->is_array()) r.fail(where, "helipads must be an array");
      for (std::size_t k = 0; k < it->size(); ++k) {
        const std::string hw = fmt::format("{}.helipads[{}]", where, k);
        const json& h = (*it)[k];
        r.requireObject(h, hw);
        r.checkKeys(h, hw,
                    {"latitude", "longitude", "altitudeM", "headingDeg", "lengthM", "widthM", "surface", "type"});
        HelipadEntry he;
        r.number(h, hw, "latitude", he.latitude);
        r.number(h, hw, "longitude", he.longitude);
        checkLatLon(r, hw, he.latitude, he.longitude);
        r.number(h, hw, "altitudeM", he.altitudeM);
        r.number(h, hw, "headingDeg", he.headingDeg);
        r.number(h, hw, "lengthM", he.lengthM);
        r.number(h, hw, "widthM", he.widthM);
        r.integer(h, hw, "surface", he.surface, 0, 1000);
        r.integer(h, hw, "type", he.type, 0, 1000);
        e.helipads.push_back(he);
      }
    }
    airports.push_back(std::move(e));
  }
}

// The calls a failure may name: those of the program, and nothing else.
constexpr std::string_view kCallNames[] = {
    "SimConnect_Open",
    "SimConnect_Close",
    "SimConnect_CallDispatch",
    "SimConnect_GetLastSentPacketID",
    "SimConnect_SubscribeToSystemEvent",
    "SimConnect_AddToDataDefinition",
    "SimConnect_MapClientEventToSimEvent",
    "SimConnect_AddClientEventToNotificationGroup",
    "SimConnect_SetNotificationGroupPriority",
    "SimConnect_RequestDataOnSimObject",
    "SimConnect_RequestDataOnSimObjectType",
    "SimConnect_SetDataOnSimObject",
    "SimConnect_TransmitClientEvent",
    "SimConnect_AICreateNonATCAircraft",
    "SimConnect_AIRemoveObject",
    "SimConnect_AIReleaseControl",
    "SimConnect_AISetAircraftFlightPlan",
    "SimConnect_AddToFacilityDefinition",
    "SimConnect_RequestFacilityData",
};

ScriptedEvent readEvent(const Reader& r, const json& j, std::size_t i) {
  const std::string where = fmt::format("events[{}]", i);
  r.requireObject(j, where);
  ScriptedEvent e;
  r.requireKey(j, where, "at");
  r.requireKey(j, where, "type");
  r.number(j, where, "at", e.at);
  if (e.at < 0) r.fail(Reader::at(where, "at"), "must not be negative");
  std::string type;
  r.text(j, where, "type", type);
  if (type == "sim") {
    r.checkKeys(j, where, {"at", "type", "running"});
    r.requireKey(j, where, "running");
    e.kind = ScriptKind::InFlight;
    r.boolean(j, where, "running", e.flag);
  } else if (type == "pause") {
    r.checkKeys(j, where, {"at", "type", "paused", "active"});
    r.requireKey(j, where, "paused");
    e.kind = ScriptKind::Pause;
    r.boolean(j, where, "paused", e.flag);
    bool active = false;
    r.boolean(j, where, "active", active);
    e.value = active ? 1 : 0;
  } else if (type == "flightLoaded") {
    r.checkKeys(j, where, {"at", "type", "file"});
    e.kind = ScriptKind::FileEvent;
    e.text = "FlightLoaded";
    r.text(j, where, "file", e.text2);
  } else if (type == "fileEvent") {
    r.checkKeys(j, where, {"at", "type", "systemEvent", "file"});
    r.requireKey(j, where, "systemEvent");
    e.kind = ScriptKind::FileEvent;
    r.text(j, where, "systemEvent", e.text);
    r.text(j, where, "file", e.text2);
    constexpr std::string_view kFileEvents[] = {"FlightLoaded", "FlightSaved", "AircraftLoaded", "FlightPlanActivated"};
    if (std::find(std::begin(kFileEvents), std::end(kFileEvents), e.text) == std::end(kFileEvents)) {
      r.fail(Reader::at(where, "systemEvent"),
             fmt::format("'{}' is no file name event (known: FlightLoaded, FlightSaved, AircraftLoaded, "
                         "FlightPlanActivated)",
                         e.text));
    }
  } else if (type == "quit") {
    r.checkKeys(j, where, {"at", "type"});
    e.kind = ScriptKind::Quit;
  } else if (type == "loseSessions") {
    r.checkKeys(j, where, {"at", "type"});
    e.kind = ScriptKind::LoseSessions;
  } else if (type == "moveUser") {
    r.checkKeys(j, where, {"at", "type", "latitude", "longitude", "altitudeFt", "headingDeg", "pitchDeg", "bankDeg",
                           "groundSpeedKt", "onGround"});
    e.kind = ScriptKind::MoveUser;
    readPlacement(r, j, where, e.placement);
  } else if (type == "addAircraft") {
    r.checkKeys(j, where, {"at", "type", "title", "atcId", "latitude", "longitude", "altitudeFt", "headingDeg",
                           "pitchDeg", "bankDeg", "groundSpeedKt", "onGround"});
    r.requireKey(j, where, "title");
    r.requireKey(j, where, "latitude");
    e.kind = ScriptKind::AddAircraft;
    r.text(j, where, "title", e.text);
    r.text(j, where, "atcId", e.text2);
    readPlacement(r, j, where, e.placement);
  } else if (type == "removeObject") {
    r.checkKeys(j, where, {"at", "type", "objectId", "atcId"});
    if (j.contains("objectId") == j.contains("atcId")) r.fail(where, "give either objectId or atcId");
    e.kind = ScriptKind::RemoveObject;
    r.integer(j, where, "objectId", e.objectId, 1, 0xFFFFFFFFLL);
    r.text(j, where, "atcId", e.text2);
  } else if (type == "failCall") {
    r.checkKeys(j, where, {"at", "type", "call", "count", "exception", "index"});
    r.requireKey(j, where, "call");
    e.kind = ScriptKind::FailCall;
    r.text(j, where, "call", e.text);
    if (std::find(std::begin(kCallNames), std::end(kCallNames), e.text) == std::end(kCallNames)) {
      r.fail(Reader::at(where, "call"), fmt::format("'{}' is not a SimConnect call of the program", e.text));
    }
    r.integer(j, where, "count", e.count, -1, 1000000);
    r.integer(j, where, "exception", e.exception, 0, 1000);
    r.integer(j, where, "index", e.index, 0, 0xFFFFFFFFLL);
  } else if (type == "maxAiObjects") {
    r.checkKeys(j, where, {"at", "type", "value"});
    r.requireKey(j, where, "value");
    e.kind = ScriptKind::MaxAiObjects;
    r.integer(j, where, "value", e.count, 0, 100000);
  } else if (type == "terrain") {
    r.checkKeys(j, where, {"at", "type", "elevationFt"});
    r.requireKey(j, where, "elevationFt");
    e.kind = ScriptKind::Terrain;
    r.number(j, where, "elevationFt", e.value);
  } else {
    r.fail(Reader::at(where, "type"),
           fmt::format("unknown event type '{}' (known: sim, pause, flightLoaded, fileEvent, quit, loseSessions, "
                       "moveUser, addAircraft, removeObject, failCall, maxAiObjects, terrain)",
                       type));
  }
  return e;
}

}  // namespace

bool isProgramCall(std::string_view call) {
  return std::find(std::begin(kCallNames), std::end(kCallNames), call) != std::end(kCallNames);
}

Scenario defaultScenario() {
  Scenario s;
  s.applicationVersion = {11, 0, 282174, 999};
  s.simConnectVersion = {11, 0, 62651, 3};
  return s;
}

Scenario parseScenario(std::string_view text, std::string_view origin) {
  const Reader r(origin);
  json j;
  try {
    j = json::parse(text.begin(), text.end());
  } catch (const json::exception& e) {
    // A syntax error, or a number beyond any double (out_of_range).
    r.fail("", fmt::format("not valid JSON: {}", e.what()));
  }
  r.requireObject(j, "");
  r.checkKeys(j, "",
              {"simulator", "applicationName", "applicationVersion", "simConnectVersion", "frameRate", "zuluStart",
               "terrainElevationFt", "airportTerrainRadiusNm", "user", "firstObjectId", "maxAiObjects", "createDelayFrames",
               "objectAddedDelayFrames", "removeDelayFrames", "simEventOnSubscribe", "inFlight", "paused",
               "acceptAnyTitle", "titles", "installedTitlesFile", "models", "airports", "events", "traceFile",
               "traceEveryFrames"});
  Scenario s = defaultScenario();
  s.origin = std::string(origin);
  if (r.integer(j, "", "simulator", s.simulator, 0, 9999)) {
    if (s.simulator != 2020 && s.simulator != 2024) {
      r.fail("simulator", fmt::format("must be 2020 or 2024, not {}", s.simulator));
    }
    if (s.simulator == 2024) {
      s.applicationVersion = {12, 1, 282174, 999};
      s.simConnectVersion = {12, 1, 0, 0};
    }
  }
  r.text(j, "", "applicationName", s.applicationName);
  if (auto it = j.find("applicationVersion"); it != j.end()) s.applicationVersion = readVersion(r, *it, "applicationVersion");
  if (auto it = j.find("simConnectVersion"); it != j.end()) s.simConnectVersion = readVersion(r, *it, "simConnectVersion");
  if (r.number(j, "", "frameRate", s.frameRate) && (s.frameRate < 1 || s.frameRate > 1000)) {
    r.fail("frameRate", fmt::format("must lie in 1 to 1000 frames a second, not {}", s.frameRate));
  }
  std::string zulu;
  if (r.text(j, "", "zuluStart", zulu)) s.zuluStart = parseZulu(r, "zuluStart", zulu);
  r.number(j, "", "terrainElevationFt", s.terrainElevationFt);
  r.number(j, "", "airportTerrainRadiusNm", s.airportTerrainRadiusNm);
  if (auto it = j.find("user"); it != j.end()) readUser(r, *it, s.user);
  if (!r.integer(j, "", "firstObjectId", s.firstObjectId, 1, 0xFFFFFFF0LL)) {
    s.firstObjectId = std::max<DWORD>(s.firstObjectId, s.user.objectId + 1);
  }
  if (s.firstObjectId <= s.user.objectId) {
    r.fail("firstObjectId", fmt::format("must lie above the user's object id {}", s.user.objectId));
  }
  r.integer(j, "", "maxAiObjects", s.maxAiObjects, 0, 100000);
  r.integer(j, "", "createDelayFrames", s.createDelayFrames, 1, 100000);
  r.integer(j, "", "objectAddedDelayFrames", s.objectAddedDelayFrames, 0, 100000);
  r.integer(j, "", "removeDelayFrames", s.removeDelayFrames, 1, 100000);
  r.boolean(j, "", "simEventOnSubscribe", s.simEventOnSubscribe);
  r.boolean(j, "", "inFlight", s.inFlight);
  r.boolean(j, "", "paused", s.paused);
  r.boolean(j, "", "acceptAnyTitle", s.acceptAnyTitle);
  if (auto it = j.find("titles"); it != j.end()) readTitles(r, *it, s.titles);
  std::string installedTitles;
  if (r.text(j, "", "installedTitlesFile", installedTitles) && readInstalledTitles(installedTitles, s.titles))
    s.acceptAnyTitle = false;
  if (auto it = j.find("models"); it != j.end()) readModels(r, *it, s.models);
  if (auto it = j.find("airports"); it != j.end()) readAirports(r, *it, s.airports);
  if (auto it = j.find("events"); it != j.end()) {
    if (!it->is_array()) r.fail("events", "must be an array of events");
    for (std::size_t i = 0; i < it->size(); ++i) s.events.push_back(readEvent(r, (*it)[i], i));
    std::stable_sort(s.events.begin(), s.events.end(),
                     [](const ScriptedEvent& a, const ScriptedEvent& b) { return a.at < b.at; });
  }
  r.text(j, "", "traceFile", s.traceFile);
  r.integer(j, "", "traceEveryFrames", s.traceEveryFrames, 1, 100000);
  return s;
}

Scenario readScenarioFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw ScenarioError(fmt::format("scenario '{}': the file cannot be read", file.string()));
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) throw ScenarioError(fmt::format("scenario '{}': the file cannot be read", file.string()));
  return parseScenario(text.str(), file.string());
}

std::string applicationName(const Scenario& scenario) {
  if (!scenario.applicationName.empty()) return scenario.applicationName;
  return scenario.simulator == 2024 ? "SunRise" : "KittyHawk";
}

ModelStatics modelStatics(const Scenario& scenario, std::string_view atcModel) {
  if (auto it = scenario.models.find(std::string(atcModel)); it != scenario.models.end()) return it->second;
  for (const auto& b : kBuiltinStatics) {
    if (atcModel == b.model) return b.statics;
  }
  return kDefaultStatics;
}

std::optional<std::string> modelOfTitle(const Scenario& scenario, std::string_view title) {
  for (const auto& t : scenario.titles) {
    if (t.title == title) return t.model;
  }
  if (scenario.acceptAnyTitle && !title.empty()) return std::string();
  return std::nullopt;
}

}  // namespace orv::standin
