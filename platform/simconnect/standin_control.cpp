#include "platform/simconnect/standin_control.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "platform/simconnect/standin_world.h"

namespace orv::standin {

using namespace detail;

namespace {

std::unique_lock<std::mutex> locked(World& w) { return std::unique_lock(w.mutex); }

void requireStopped(const World& w, const char* what) {
  if (w.up) throw std::logic_error(fmt::format("{}: the stand-in simulator must be stopped first", what));
}

void requireUp(const World& w, const char* what) {
  if (!w.up) throw std::logic_error(fmt::format("{}: the stand-in simulator is not running", what));
}

void install(Scenario scenario) {
  World& w = world();
  auto lock = locked(w);
  requireStopped(w, "loading a scenario");
  w.scenario = std::move(scenario);
  buildWorld(w);
}

const SimObject* findAnywhere(const World& w, DWORD objectId) {
  if (auto it = w.objects.find(objectId); it != w.objects.end()) return &it->second;
  if (auto it = w.removed.find(objectId); it != w.removed.end()) return &it->second;
  return nullptr;
}

}  // namespace

void loadScenarioFile(const std::filesystem::path& file) { install(readScenarioFile(file)); }

void loadScenarioText(std::string_view json, std::string_view origin) { install(parseScenario(json, origin)); }

void reset() {
  World& w = world();
  auto lock = locked(w);
  joinClockThread(w, lock);
  w.sessions.clear();
  w.up = false;
  w.failures.clear();
  w.callLog.clear();
  closeTrace(w.trace);
  w.scenario = defaultScenario();
  w.clock = Clock::Stepped;
  buildWorld(w);
  w.changed.notify_all();
}

void start(Clock clock, double timeScale) {
  if (!(timeScale > 0.0 && timeScale <= 1000.0)) throw std::invalid_argument("start: the time scale must be above 0 and at most 1000");
  World& w = world();
  auto lock = locked(w);
  requireStopped(w, "start");
  w.timeScale = timeScale;
  joinClockThread(w, lock);
  buildWorld(w);
  if (!w.scenario.traceFile.empty()) {
    // The scenario's trace may go to a folder that a fresh working folder lacks yet.
    const std::filesystem::path file = w.scenario.traceFile;
    std::error_code ec;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), ec);
    openTrace(w.trace, file, w.scenario.traceEveryFrames);
  }
  w.up = true;
  w.clock = clock;
  if (clock == Clock::RealTime) startClockThread(w);
  w.changed.notify_all();
}

void stop(bool sendQuit) {
  World& w = world();
  auto lock = locked(w);
  if (w.up) quit(w, sendQuit);
  joinClockThread(w, lock);
}

bool isRunning() {
  World& w = world();
  auto lock = locked(w);
  return w.up;
}

void advanceFrames(int count) {
  World& w = world();
  auto lock = locked(w);
  requireUp(w, "advanceFrames");
  if (w.clock != Clock::Stepped) throw std::logic_error("advanceFrames: the clock runs in real time");
  for (int i = 0; i < count && w.up; ++i) stepFrame(w);
}

void advanceSeconds(double seconds) {
  advanceFrames(static_cast<int>(std::llround(seconds * frameRate())));
}

std::uint64_t frame() {
  World& w = world();
  auto lock = locked(w);
  return w.frame;
}

double simTime() {
  World& w = world();
  auto lock = locked(w);
  return detail::simTime(w);
}

double frameRate() {
  World& w = world();
  auto lock = locked(w);
  return w.scenario.frameRate;
}

bool waitUntilIdle(std::chrono::milliseconds timeout) {
  World& w = world();
  auto lock = locked(w);
  return w.changed.wait_for(lock, timeout, [&] {
    if (w.dispatching > 0) return false;
    return std::all_of(w.sessions.begin(), w.sessions.end(),
                       [](const auto& s) { return s.second.lost || s.second.inbox.empty(); });
  });
}

bool waitForSession(std::string_view name, std::chrono::milliseconds timeout) {
  World& w = world();
  auto lock = locked(w);
  return w.changed.wait_for(lock, timeout, [&] {
    return std::any_of(w.sessions.begin(), w.sessions.end(), [&](const auto& s) {
      return s.second.name == name && !s.second.dead && !s.second.lost;
    });
  });
}

void setInFlight(bool inFlight) {
  World& w = world();
  auto lock = locked(w);
  detail::setInFlight(w, inFlight);
}

void setPaused(bool paused) {
  World& w = world();
  auto lock = locked(w);
  detail::setPauseFlags(w, paused ? detail::kPauseFull : 0);
}

void setActivePause(bool paused) {
  World& w = world();
  auto lock = locked(w);
  detail::setPauseFlags(w, paused ? detail::kPauseActive : 0);
}

void loadFlight(std::string_view file) { fileEvent("FlightLoaded", file); }

void fileEvent(std::string_view systemEvent, std::string_view file) {
  World& w = world();
  auto lock = locked(w);
  const std::string name = systemEventName(systemEvent);
  if (name.empty()) throw std::invalid_argument(fmt::format("fileEvent: unknown system event '{}'", systemEvent));
  broadcastFileEvent(w, name, file);
}

void moveUser(double latitude, double longitude, std::optional<double> altitudeFt, std::optional<double> headingDeg) {
  World& w = world();
  auto lock = locked(w);
  Placement p;
  p.latitude = latitude;
  p.longitude = longitude;
  p.altitudeFt = altitudeFt;
  p.headingDeg = headingDeg;
  if (SimObject* user = findObject(w, SIMCONNECT_OBJECT_ID_USER)) place(w, user->state, p);
}

void setUserGroundSpeed(double knots) {
  World& w = world();
  auto lock = locked(w);
  if (SimObject* user = findObject(w, SIMCONNECT_OBJECT_ID_USER)) {
    user->state.groundSpeedKt = knots;
    user->state.trueAirspeedKt = knots;
  }
}

void setTerrainElevation(double feet) {
  World& w = world();
  auto lock = locked(w);
  w.terrainFt = feet;
}

DWORD addForeignAircraft(std::string_view title, std::string_view atcId, double latitude, double longitude,
                         std::optional<double> altitudeFt, double headingDeg) {
  World& w = world();
  auto lock = locked(w);
  requireUp(w, "addForeignAircraft");
  const std::string model = modelOfTitle(w.scenario, title).value_or("");
  SIMCONNECT_DATA_INITPOSITION pos{};
  pos.Latitude = latitude;
  pos.Longitude = longitude;
  pos.Heading = headingDeg;
  pos.Altitude = altitudeFt.value_or(0);
  pos.OnGround = altitudeFt ? 0 : 1;
  const DWORD id = addObject(w, title, atcId, model, pos, 0);
  broadcastObjectEvent(w, "ObjectAdded", id);
  return id;
}

bool removeObject(DWORD objectId) {
  World& w = world();
  auto lock = locked(w);
  auto it = w.objects.find(objectId);
  if (it == w.objects.end() || it->second.state.isUser) return false;
  removeObjectNow(w, objectId);
  return true;
}

void failCalls(std::string_view call, int count, DWORD exception, DWORD index) {
  if (!isProgramCall(call)) {
    throw std::invalid_argument(fmt::format("failCalls: '{}' is not a SimConnect call of the program", call));
  }
  World& w = world();
  auto lock = locked(w);
  w.failures.push_back({std::string(call), count, exception, index});
}

void clearFailures() {
  World& w = world();
  auto lock = locked(w);
  w.failures.clear();
}

void loseSessions() {
  World& w = world();
  auto lock = locked(w);
  loseAllSessions(w);
}

void setMaxAiObjects(std::size_t count) {
  World& w = world();
  auto lock = locked(w);
  w.maxAiObjects = count;
}

DWORD userObjectId() {
  World& w = world();
  auto lock = locked(w);
  return w.scenario.user.objectId;
}

std::optional<ObjectState> object(DWORD objectId) {
  World& w = world();
  auto lock = locked(w);
  const SimObject* o = findObject(w, objectId);
  if (o == nullptr) return std::nullopt;
  return snapshot(w, *o);
}

std::optional<ObjectState> objectByAtcId(std::string_view atcId) {
  World& w = world();
  auto lock = locked(w);
  for (const auto& [id, o] : w.objects) {
    if (o.state.atcId == atcId) return snapshot(w, o);
  }
  return std::nullopt;
}

std::vector<ObjectState> objects() {
  World& w = world();
  auto lock = locked(w);
  std::vector<ObjectState> out;
  for (const auto& [id, o] : w.objects) out.push_back(snapshot(w, o));
  std::stable_partition(out.begin(), out.end(), [](const ObjectState& s) { return s.isUser; });
  return out;
}

std::vector<EventRecord> eventsFor(DWORD objectId) {
  World& w = world();
  auto lock = locked(w);
  if (objectId == SIMCONNECT_OBJECT_ID_USER) objectId = w.scenario.user.objectId;
  const SimObject* o = findAnywhere(w, objectId);
  if (o == nullptr) return {};
  return {o->events.begin(), o->events.end()};
}

std::vector<CallRecord> callsFor(DWORD objectId) {
  World& w = world();
  auto lock = locked(w);
  if (objectId == SIMCONNECT_OBJECT_ID_USER) objectId = w.scenario.user.objectId;
  const SimObject* o = findAnywhere(w, objectId);
  if (o == nullptr) return {};
  return {o->calls.begin(), o->calls.end()};
}

std::vector<CallRecord> calls() {
  World& w = world();
  auto lock = locked(w);
  return {w.callLog.begin(), w.callLog.end()};
}

void clearCallLog() {
  World& w = world();
  auto lock = locked(w);
  w.callLog.clear();
}

std::vector<std::string> sessionNames() {
  World& w = world();
  auto lock = locked(w);
  std::vector<std::string> out;
  for (const auto& [key, s] : w.sessions) {
    if (!s.dead && !s.lost) out.push_back(s.name);
  }
  return out;
}

std::optional<SessionInfo> session(std::string_view name) {
  World& w = world();
  auto lock = locked(w);
  for (const auto& [key, s] : w.sessions) {
    if (s.name != name || s.dead || s.lost) continue;
    SessionInfo info;
    info.name = s.name;
    info.systemEvents = s.systemEvents;
    info.clientEvents = s.clientEvents;
    info.groups = s.groups;
    info.groupPriorities = s.groupPriorities;
    for (const auto& [id, def] : s.definitions) {
      auto& list = info.dataDefinitions[id];
      for (const auto& d : def.datums) list.push_back(d.description);
    }
    for (const auto& [id, def] : s.facilityDefinitions) info.facilityDefinitions[id] = def.keywords;
    return info;
  }
  return std::nullopt;
}

void startTrace(const std::filesystem::path& file, int everyFrames) {
  World& w = world();
  auto lock = locked(w);
  openTrace(w.trace, file, everyFrames);
}

void stopTrace() {
  World& w = world();
  auto lock = locked(w);
  closeTrace(w.trace);
}

}  // namespace orv::standin
