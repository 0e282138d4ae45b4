#include "platform/simconnect/standin_world.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

namespace orv::standin::detail {
namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr std::size_t kCallLogLimit = 100000;
constexpr std::size_t kObjectLogLimit = 10000;

constexpr std::array<std::string_view, 24> kSystemEvents = {
    "1sec",     "4sec",       "6Hz",         "AircraftLoaded",      "Crashed",
    "CrashReset", "FlightLoaded", "FlightSaved", "FlightPlanActivated", "FlightPlanDeactivated",
    "Frame",    "ObjectAdded", "ObjectRemoved", "Pause",             "Pause_EX1",
    "Paused",   "PauseFrame", "PositionChanged", "Sim",             "SimStart",
    "SimStop",  "Sound",      "Unpaused",    "View",
};

constexpr std::array<std::string_view, 17> kSimEvents = {
    "BEACON_LIGHTS_SET",   "NAV_LIGHTS_SET",      "TAXI_LIGHTS_SET",     "STROBES_SET",
    "LANDING_LIGHTS_SET",  "CABIN_LIGHTS_SET",    "LOGO_LIGHTS_SET",     "ALL_LIGHTS_TOGGLE",
    "FREEZE_LATITUDE_LONGITUDE_SET", "FREEZE_ALTITUDE_SET", "FREEZE_ATTITUDE_SET", "FLAPS_SET",
    "SPOILERS_SET",        "GEAR_SET",            "ENGINE_AUTO_START",   "ENGINE_AUTO_SHUTDOWN",
    "THROTTLE_SET",
};

bool equalNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
         });
}

template <class T>
void pushCapped(std::deque<T>& log, const T& item, std::size_t limit) {
  log.push_back(item);
  if (log.size() > limit) log.pop_front();
}

double leverPercent(DWORD data) {
  return static_cast<double>(std::min<DWORD>(data, 16383)) * 100.0 / 16383.0;
}

void setLight(ObjectState& o, std::int64_t bit, DWORD data) {
  if (data != 0) {
    o.lights |= bit;
  } else {
    o.lights &= ~bit;
  }
}


}  // namespace

World::World() : scenario(defaultScenario()) {}

World::~World() {
  std::unique_lock lock(mutex);
  joinClockThread(*this, lock);
}

World& world() {
  static World w;
  return w;
}

double simTime(const World& w) { return static_cast<double>(w.frame) / w.scenario.frameRate; }

SimContext simContext(const World& w) {
  return SimContext{w.terrainFt, static_cast<double>(w.scenario.zuluStart) + simTime(w)};
}

double terrainAt(const World& w, double latitude, double longitude) {
  double best = w.scenario.airportTerrainRadiusNm;
  double elevation = w.terrainFt;
  for (const AirportEntry& a : w.scenario.airports) {
    const double la1 = latitude * 0.017453292519943295, la2 = a.latitude * 0.017453292519943295;
    const double dla = la2 - la1, dlo = (a.longitude - longitude) * 0.017453292519943295;
    const double h = std::sin(dla / 2) * std::sin(dla / 2) +
                     std::cos(la1) * std::cos(la2) * std::sin(dlo / 2) * std::sin(dlo / 2);
    const double nm = 2 * 3440.065 * std::asin(std::min(1.0, std::sqrt(h)));
    if (nm <= best) {
      best = nm;
      elevation = a.altitudeM / 0.3048;
    }
  }
  return elevation;
}

SimContext simContext(const World& w, const ObjectState& object) {
  SimContext c = simContext(w);
  c.terrainFt = terrainAt(w, object.latitude, object.longitude);
  return c;
}

DWORD recordVersion(const World& w) { return w.scenario.simConnectVersion[0]; }

void buildWorld(World& w) {
  const Scenario& s = w.scenario;
  w.frame = 0;
  w.inFlight = s.inFlight;
  w.pauseFlags = s.paused ? kPauseFull : 0;
  w.terrainFt = s.terrainElevationFt;
  w.maxAiObjects = s.maxAiObjects;
  w.objects.clear();
  w.removed.clear();
  w.nextObjectId = s.firstObjectId;
  w.creates.clear();
  w.addedNotices.clear();
  w.removals.clear();
  w.nextScripted = 0;
  w.lastFacilityUniqueId = 0;

  SimObject user;
  ObjectState& u = user.state;
  u.objectId = s.user.objectId;
  u.isUser = true;
  u.title = s.user.title;
  u.atcModel = s.user.atcModel;
  u.atcId = s.user.atcId;
  const ModelStatics statics = modelStatics(s, s.user.atcModel);
  u.staticCgFt = statics.cgFt;
  u.staticPitchRad = statics.pitchDeg * kRadiansPerDegree;
  u.latitude = s.user.latitude;
  u.longitude = s.user.longitude;
  u.altitudeFt = s.user.onGround ? terrainAt(w, s.user.latitude, s.user.longitude) + u.staticCgFt : s.user.altitudeFt;
  u.headingRad = s.user.headingDeg * kRadiansPerDegree;
  u.pitchRad = s.user.pitchDeg * kRadiansPerDegree;
  u.bankRad = s.user.bankDeg * kRadiansPerDegree;
  u.groundSpeedKt = s.user.groundSpeedKt;
  u.trueAirspeedKt = s.user.groundSpeedKt;
  u.lights = s.user.lights;
  u.enginesRunning = true;
  w.objects[u.objectId] = std::move(user);
}

SimObject* findObject(World& w, DWORD objectId) {
  if (objectId == SIMCONNECT_OBJECT_ID_USER) objectId = w.scenario.user.objectId;
  auto it = w.objects.find(objectId);
  return it == w.objects.end() ? nullptr : &it->second;
}

ObjectState snapshot(const World& w, const SimObject& object) {
  ObjectState s = object.state;
  s.groundElevationFt = terrainAt(w, s.latitude, s.longitude);
  s.onGround = isOnGround(s, s.groundElevationFt);
  return s;
}

DWORD addObject(World& w, std::string_view title, std::string_view atcId, std::string_view model,
                const SIMCONNECT_DATA_INITPOSITION& p, std::uintptr_t owner) {
  SimObject o;
  o.owner = owner;
  ObjectState& s = o.state;
  s.objectId = w.nextObjectId++;
  s.title = std::string(title);
  s.atcId = std::string(atcId);
  s.atcModel = std::string(model);
  const ModelStatics statics = modelStatics(w.scenario, model);
  s.staticCgFt = statics.cgFt;
  s.staticPitchRad = statics.pitchDeg * kRadiansPerDegree;
  s.helicopter = statics.helicopter;
  s.latitude = p.Latitude;
  s.longitude = p.Longitude;
  s.altitudeFt = p.OnGround != 0 ? terrainAt(w, s.latitude, s.longitude) + s.staticCgFt : p.Altitude;
  s.pitchRad = p.Pitch * kRadiansPerDegree;
  s.bankRad = p.Bank * kRadiansPerDegree;
  s.headingRad = p.Heading * kRadiansPerDegree;
  s.trueAirspeedKt = p.Airspeed;
  s.groundSpeedKt = p.Airspeed;
  s.aiControlled = true;
  s.createdFrame = w.frame;
  const DWORD id = s.objectId;
  w.objects[id] = std::move(o);
  return id;
}

void removeObjectNow(World& w, DWORD objectId) {
  auto it = w.objects.find(objectId);
  if (it == w.objects.end() || it->second.state.isUser) return;
  w.removed[objectId] = std::move(it->second);
  w.objects.erase(it);
  broadcastObjectEvent(w, "ObjectRemoved", objectId);
}

void place(World& w, ObjectState& o, const Placement& p) {
  if (p.latitude) o.latitude = *p.latitude;
  if (p.longitude) o.longitude = *p.longitude;
  if (p.headingDeg) o.headingRad = *p.headingDeg * kRadiansPerDegree;
  if (p.pitchDeg) o.pitchRad = *p.pitchDeg * kRadiansPerDegree;
  if (p.bankDeg) o.bankRad = *p.bankDeg * kRadiansPerDegree;
  if (p.groundSpeedKt) {
    o.groundSpeedKt = *p.groundSpeedKt;
    o.trueAirspeedKt = *p.groundSpeedKt;
  }
  if (p.altitudeFt) o.altitudeFt = *p.altitudeFt;
  if (p.onGround.value_or(false)) o.altitudeFt = terrainAt(w, o.latitude, o.longitude) + o.staticCgFt;
}

void applyClientEvent(SimObject& object, const std::string& e, DWORD data) {
  ObjectState& o = object.state;
  if (e == "BEACON_LIGHTS_SET") setLight(o, kLightBeacon, data);
  else if (e == "NAV_LIGHTS_SET") setLight(o, kLightNav, data);
  else if (e == "TAXI_LIGHTS_SET") setLight(o, kLightTaxi, data);
  else if (e == "STROBES_SET") setLight(o, kLightStrobe, data);
  else if (e == "LANDING_LIGHTS_SET") setLight(o, kLightLanding, data);
  else if (e == "CABIN_LIGHTS_SET") setLight(o, kLightCabin, data);
  else if (e == "LOGO_LIGHTS_SET") setLight(o, kLightLogo, data);
  else if (e == "ALL_LIGHTS_TOGGLE") o.lights ^= kAllLights;
  else if (e == "FREEZE_LATITUDE_LONGITUDE_SET") o.freezeLatLon = data != 0;
  else if (e == "FREEZE_ALTITUDE_SET") o.freezeAltitude = data != 0;
  else if (e == "FREEZE_ATTITUDE_SET") o.freezeAttitude = data != 0;
  else if (e == "FLAPS_SET") {
    o.flapsPercent = leverPercent(data);
    // A flaps command hands an AI aircraft back to the simulator's own AI.
    if (!o.isUser) o.aiControlled = true;
  } else if (e == "SPOILERS_SET") o.spoilersPercent = leverPercent(data);
  else if (e == "GEAR_SET") o.gearDown = data != 0;
  else if (e == "ENGINE_AUTO_START") o.enginesRunning = true;
  else if (e == "ENGINE_AUTO_SHUTDOWN") o.enginesRunning = false;
  else if (e == "THROTTLE_SET") o.throttlePercent[0] = o.throttlePercent[1] = leverPercent(data);
}

void post(Session& session, Record record) {
  if (session.lost || session.dead) return;
  session.inbox.push_back(std::move(record));
}

void broadcastSystemEvent(World& w, std::string_view systemEvent, DWORD data) {
  for (auto& [key, s] : w.sessions) {
    for (const auto& [eventId, name] : s.systemEvents) {
      if (name == systemEvent) post(s, makeEvent(recordVersion(w), eventId, data));
    }
  }
}

void broadcastFileEvent(World& w, std::string_view systemEvent, std::string_view file) {
  for (auto& [key, s] : w.sessions) {
    for (const auto& [eventId, name] : s.systemEvents) {
      if (name == systemEvent) post(s, makeFileNameEvent(recordVersion(w), eventId, file));
    }
  }
}

SIMCONNECT_SIMOBJECT_TYPE objectType(const World& w, DWORD objectId) {
  const auto live = w.objects.find(objectId);
  const SimObject* o = live != w.objects.end() ? &live->second : nullptr;
  if (o == nullptr) {
    const auto gone = w.removed.find(objectId);
    if (gone != w.removed.end()) o = &gone->second;
  }
  return o != nullptr && o->state.helicopter ? SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER : SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT;
}

void broadcastObjectEvent(World& w, std::string_view systemEvent, DWORD objectId) {
  for (auto& [key, s] : w.sessions) {
    for (const auto& [eventId, name] : s.systemEvents) {
      if (name == systemEvent) {
        post(s, makeObjectAddRemove(recordVersion(w), eventId, objectId, objectType(w, objectId)));
      }
    }
  }
}

// "Sim" tells whether a flight runs, not whether it is paused: a pause of any kind leaves it.
void setInFlight(World& w, bool inFlight) {
  if (w.inFlight == inFlight) return;
  w.inFlight = inFlight;
  broadcastSystemEvent(w, "Sim", inFlight ? 1 : 0);
  broadcastSystemEvent(w, inFlight ? "SimStart" : "SimStop", 0);
}

void setPauseFlags(World& w, DWORD flags) {
  if (w.pauseFlags == flags) return;
  const DWORD before = legacyPause(w.pauseFlags);
  w.pauseFlags = flags;
  broadcastSystemEvent(w, "Pause_EX1", flags);
  const DWORD after = legacyPause(flags);
  if (before == after) return;
  broadcastSystemEvent(w, "Pause", after);
  broadcastSystemEvent(w, after ? "Paused" : "Unpaused", 0);
}

void sendObjectData(World& w, Session& session, DWORD requestId, DWORD defineId, const SimObject& object,
                    DWORD flags) {
  const auto def = session.definitions.find(defineId);
  if (def == session.definitions.end()) return;
  std::vector<std::uint8_t> block;
  const SimContext context = simContext(w, object.state);
  for (const auto& d : def->second.datums) appendDatum(block, d, object.state, context);
  post(session, makeObjectData(recordVersion(w), false, requestId, object.state.objectId, defineId, flags, 1, 1,
                               static_cast<DWORD>(def->second.datums.size()), block));
}

void quit(World& w, bool sendQuit) {
  for (auto& [key, s] : w.sessions) {
    if (sendQuit) post(s, makeQuit(recordVersion(w)));
    s.dead = true;
  }
  w.up = false;
  w.creates.clear();
  w.addedNotices.clear();
  w.removals.clear();
  if (w.trace.out.is_open()) w.trace.out.flush();
  w.changed.notify_all();
}

void loseAllSessions(World& w) {
  std::vector<std::uintptr_t> keys;
  for (auto& [key, s] : w.sessions) {
    if (s.lost) continue;
    s.lost = true;
    s.inbox.clear();
    keys.push_back(key);
  }
  // The simulator drops what a vanished client made, as when it closes.
  for (auto key : keys) {
    std::vector<DWORD> owned;
    for (const auto& [id, o] : w.objects) {
      if (o.owner == key) owned.push_back(id);
    }
    for (DWORD id : owned) removeObjectNow(w, id);
    std::erase_if(w.creates, [key](const PendingCreate& c) { return c.session == key; });
  }
  w.changed.notify_all();
}

void closeSession(World& w, Session& session) {
  const std::uintptr_t key = session.key;
  w.sessions.erase(key);
  std::vector<DWORD> owned;
  for (const auto& [id, o] : w.objects) {
    if (o.owner == key) owned.push_back(id);
  }
  for (DWORD id : owned) removeObjectNow(w, id);
  std::erase_if(w.creates, [key](const PendingCreate& c) { return c.session == key; });
  w.changed.notify_all();
}

std::string systemEventName(std::string_view name) {
  for (auto known : kSystemEvents) {
    if (equalNoCase(known, name)) return std::string(known);
  }
  return {};
}

bool isKnownSimEvent(std::string_view name) {
  return std::find(kSimEvents.begin(), kSimEvents.end(), name) != kSimEvents.end();
}

void recordCall(World& w, const CallRecord& call, bool withObject) {
  pushCapped(w.callLog, call, kCallLogLimit);
  if (!withObject || call.objectId == 0) return;
  if (SimObject* o = findObject(w, call.objectId)) pushCapped(o->calls, call, kObjectLogLimit);
}

void recordEvent(SimObject& object, const EventRecord& event) {
  pushCapped(object.events, event, kObjectLogLimit);
}

}  // namespace orv::standin::detail
