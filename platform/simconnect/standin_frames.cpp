// One frame of the stand-in simulator, and the thread that runs frames in real time.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>

#include "platform/simconnect/standin_world.h"

namespace orv::standin::detail {
namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kEarthRadiusNm = 3440.065;

std::uint64_t framesPerSecond(const World& w) {
  return std::max<std::uint64_t>(1, static_cast<std::uint64_t>(std::llround(w.scenario.frameRate)));
}

// Dead reckoning of the user aircraft along its heading on a sphere.
void moveAlongHeading(ObjectState& o, double distanceNm) {
  const double d = distanceNm / kEarthRadiusNm;
  const double lat1 = o.latitude * kRadiansPerDegree;
  const double lon1 = o.longitude * kRadiansPerDegree;
  const double h = o.headingRad;
  const double lat2 = std::asin(std::sin(lat1) * std::cos(d) + std::cos(lat1) * std::sin(d) * std::cos(h));
  double lon2 = lon1 + std::atan2(std::sin(h) * std::sin(d) * std::cos(lat1), std::cos(d) - std::sin(lat1) * std::sin(lat2));
  lon2 = std::remainder(lon2, 2 * std::numbers::pi);
  o.latitude = lat2 / kRadiansPerDegree;
  o.longitude = lon2 / kRadiansPerDegree;
}

SIMCONNECT_DATA_INITPOSITION initPosition(const World& w, const Placement& p, std::string_view model) {
  SIMCONNECT_DATA_INITPOSITION pos{};
  pos.Latitude = p.latitude.value_or(0);
  pos.Longitude = p.longitude.value_or(0);
  pos.Heading = p.headingDeg.value_or(0);
  pos.Pitch = p.pitchDeg.value_or(0);
  pos.Bank = p.bankDeg.value_or(0);
  pos.Airspeed = static_cast<DWORD>(std::max(0.0, p.groundSpeedKt.value_or(0)));
  if (p.altitudeFt && !p.onGround.value_or(false)) {
    pos.Altitude = *p.altitudeFt;
  } else {
    pos.Altitude = terrainAt(w, pos.Latitude, pos.Longitude) + modelStatics(w.scenario, model).cgFt;
  }
  return pos;
}

void runScripted(World& w, const ScriptedEvent& e) {
  switch (e.kind) {
    case ScriptKind::InFlight: setInFlight(w, e.flag); break;
    case ScriptKind::Pause: setPauseFlags(w, e.flag ? (e.value != 0 ? kPauseActive : kPauseFull) : 0); break;
    case ScriptKind::FileEvent: broadcastFileEvent(w, systemEventName(e.text), e.text2); break;
    case ScriptKind::Quit: quit(w, true); break;
    case ScriptKind::LoseSessions: loseAllSessions(w); break;
    case ScriptKind::MoveUser:
      if (SimObject* user = findObject(w, SIMCONNECT_OBJECT_ID_USER)) place(w, user->state, e.placement);
      break;
    case ScriptKind::AddAircraft: {
      const std::string model = modelOfTitle(w.scenario, e.text).value_or("");
      const DWORD id = addObject(w, e.text, e.text2, model, initPosition(w, e.placement, model), 0);
      broadcastObjectEvent(w, "ObjectAdded", id);
      break;
    }
    case ScriptKind::RemoveObject: {
      DWORD id = e.objectId;
      if (!e.text2.empty()) {
        for (const auto& [oid, o] : w.objects) {
          if (o.state.atcId == e.text2 && !o.state.isUser) id = oid;
        }
      }
      removeObjectNow(w, id);
      break;
    }
    case ScriptKind::FailCall: w.failures.push_back({e.text, e.count, e.exception, e.index}); break;
    case ScriptKind::MaxAiObjects: w.maxAiObjects = static_cast<std::size_t>(e.count); break;
    case ScriptKind::Terrain: w.terrainFt = e.value; break;
  }
}

void settleCreations(World& w) {
  std::vector<PendingCreate> due;
  for (auto it = w.creates.begin(); it != w.creates.end();) {
    if (it->dueFrame <= w.frame) {
      due.push_back(std::move(*it));
      it = w.creates.erase(it);
    } else {
      ++it;
    }
  }
  for (auto& c : due) {
    auto sit = w.sessions.find(c.session);
    if (sit == w.sessions.end() || sit->second.dead || sit->second.lost) continue;
    Session& s = sit->second;
    const auto model = modelOfTitle(w.scenario, c.title);
    if (!model) {
      post(s, makeException(recordVersion(w), SIMCONNECT_EXCEPTION_CREATE_OBJECT_FAILED, c.sendId,
                            SIMCONNECT_RECV_EXCEPTION::UNKNOWN_INDEX));
      continue;
    }
    if (w.objects.size() - 1 >= w.maxAiObjects) {
      post(s, makeException(recordVersion(w), SIMCONNECT_EXCEPTION_TOO_MANY_OBJECTS, c.sendId,
                            SIMCONNECT_RECV_EXCEPTION::UNKNOWN_INDEX));
      continue;
    }
    const DWORD id = addObject(w, c.title, c.tailNumber, *model, c.position, c.session);
    c.call.objectId = id;
    w.objects[id].calls.push_back(c.call);
    post(s, makeAssignedObjectId(recordVersion(w), c.requestId, id));
    if (w.scenario.objectAddedDelayFrames == 0) {
      broadcastObjectEvent(w, "ObjectAdded", id);
    } else {
      w.addedNotices.push_back({id, w.frame + static_cast<std::uint64_t>(w.scenario.objectAddedDelayFrames)});
    }
  }
}

void sendDueNotices(World& w) {
  std::vector<DueObject> due;
  std::erase_if(w.addedNotices, [&](const DueObject& n) {
    if (n.dueFrame > w.frame) return false;
    due.push_back(n);
    return true;
  });
  for (const auto& n : due) {
    if (w.objects.count(n.objectId)) broadcastObjectEvent(w, "ObjectAdded", n.objectId);
  }
  std::vector<DueObject> removals;
  std::erase_if(w.removals, [&](const DueObject& n) {
    if (n.dueFrame > w.frame) return false;
    removals.push_back(n);
    return true;
  });
  for (const auto& n : removals) removeObjectNow(w, n.objectId);
}

void answerPeriodicRequests(World& w) {
  const std::uint64_t fps = framesPerSecond(w);
  for (auto& entry : w.sessions) {
    // A named reference, not a structured binding: clang 14 (the fuzz build) can't capture one.
    Session& s = entry.second;
    if (s.dead || s.lost) continue;
    std::erase_if(s.periodic, [&](const PeriodicRequest& r) {
      const SimObject* o = findObject(w, r.objectId);
      if (o == nullptr) return true;
      const bool due = r.period == SIMCONNECT_PERIOD_VISUAL_FRAME || r.period == SIMCONNECT_PERIOD_SIM_FRAME ||
                       (r.period == SIMCONNECT_PERIOD_SECOND && (w.frame - r.fromFrame) % fps == 0);
      if (due) sendObjectData(w, s, r.requestId, r.defineId, *o, r.flags);
      return false;
    });
  }
}

void sendClockEvents(World& w) {
  const std::uint64_t fps = framesPerSecond(w);
  if (w.frame % fps == 0) broadcastSystemEvent(w, "1sec", 0);
  if (w.frame % (4 * fps) == 0) broadcastSystemEvent(w, "4sec", 0);
  const double rate = w.scenario.frameRate;
  if (std::floor(static_cast<double>(w.frame) * 6 / rate) != std::floor(static_cast<double>(w.frame - 1) * 6 / rate)) {
    broadcastSystemEvent(w, "6Hz", 0);
  }
  for (auto& [key, s] : w.sessions) {
    for (const auto& [eventId, name] : s.systemEvents) {
      // Frames are drawn in a pause too; "PauseFrame" comes only then.
      if (name == "Frame" || (name == "PauseFrame" && w.pauseFlags != 0))
        post(s, makeFrame(recordVersion(w), eventId, static_cast<float>(rate), 1.0f));
    }
  }
}

void writeTrace(World& w) {
  if (!traceDue(w.trace, w.frame)) return;
  std::vector<ObjectState> states;
  states.reserve(w.objects.size());
  for (const auto& [id, o] : w.objects) states.push_back(snapshot(w, o));
  writeTraceRows(w.trace, simTime(w), w.frame, states);
}

void clockLoop(World& w) {
  using namespace std::chrono;
  std::unique_lock lock(w.mutex);
  const auto period = duration_cast<steady_clock::duration>(duration<double>(1.0 / (w.scenario.frameRate * w.timeScale)));
  auto next = steady_clock::now();
  while (!w.clockStop && w.up) {
    next += period;
    w.clockWake.wait_until(lock, next, [&] { return w.clockStop; });
    if (w.clockStop || !w.up) break;
    stepFrame(w);
    // After a stall (a debugger, a loaded machine) go on from now instead of racing to catch up.
    const auto now = steady_clock::now();
    if (now - next > seconds(1)) next = now;
  }
}

}  // namespace

void stepFrame(World& w) {
  ++w.frame;
  const double t = simTime(w);
  const auto& events = w.scenario.events;
  while (w.nextScripted < events.size() && events[w.nextScripted].at <= t + 1e-9) {
    runScripted(w, events[w.nextScripted++]);
    if (!w.up) return;
  }
  if (SimObject* user = findObject(w, SIMCONNECT_OBJECT_ID_USER)) {
    if (user->state.groundSpeedKt > 0 && !user->state.freezeLatLon) {
      moveAlongHeading(user->state, user->state.groundSpeedKt / 3600.0 / w.scenario.frameRate);
    }
  }
  settleCreations(w);
  sendDueNotices(w);
  answerPeriodicRequests(w);
  sendClockEvents(w);
  writeTrace(w);
  w.changed.notify_all();
}

void startClockThread(World& w) {
  w.clockStop = false;
  w.clockThread = std::thread(clockLoop, std::ref(w));
}

void joinClockThread(World& w, std::unique_lock<std::mutex>& lock) {
  if (!w.clockThread.joinable()) return;
  w.clockStop = true;
  w.clockWake.notify_all();
  lock.unlock();
  w.clockThread.join();
  lock.lock();
  w.clockStop = false;
}

}  // namespace orv::standin::detail
