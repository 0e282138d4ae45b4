// The SimConnect calls of the program, answered by the stand-in simulator. As with the real
// server, a call that reaches the simulator returns S_OK and a fault shows later as an
// exception record carrying the call's send id; E_FAIL means the call never got there.
#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "platform/simconnect/simconnect_subset.h"
#include "platform/simconnect/standin_entry.h"
#include "platform/simconnect/standin_world.h"

using namespace orv::standin;
using namespace orv::standin::detail;

namespace {

std::uintptr_t keyOf(HANDLE handle) { return reinterpret_cast<std::uintptr_t>(handle); }

// One call in progress: the world locked, the session found, its send id taken.
struct Call {
  World& w;
  std::unique_lock<std::mutex> lock;
  Session* session = nullptr;
  CallRecord record;
  bool proceed = false;
  HRESULT early = E_FAIL;

  Call(HANDLE handle, const char* name) : w(world()), lock(w.mutex) {
    record.frame = w.frame;
    record.call = name;
    auto it = w.sessions.find(keyOf(handle));
    if (it == w.sessions.end()) return;
    session = &it->second;
    record.session = session->name;
    if (session->dead || session->lost) {
      refuse();
      return;
    }
    for (auto f = w.failures.begin(); f != w.failures.end(); ++f) {
      if (f->call != name || f->remaining == 0) continue;
      if (f->remaining > 0) --f->remaining;
      const InjectedFailure failure = *f;
      if (f->remaining == 0) w.failures.erase(f);
      if (failure.exception == 0) {
        record.detail = "injected failure";
        refuse();
      } else {
        record.sendId = ++session->lastSendId;
        record.detail = fmt::format("injected exception {}", failure.exception);
        post(*session, makeException(recordVersion(w), failure.exception, record.sendId, failure.index));
        recordCall(w, record, false);
        early = S_OK;
      }
      return;
    }
    record.sendId = ++session->lastSendId;
    proceed = true;
  }

  void refuse() {
    record.result = E_FAIL;
    record.sendId = 0;
    recordCall(w, record, false);
    early = E_FAIL;
  }

  // The simulator refuses what the call asked: an exception record with the call's send id.
  HRESULT raise(DWORD exception, DWORD index = SIMCONNECT_RECV_EXCEPTION::UNKNOWN_INDEX) {
    post(*session, makeException(recordVersion(w), exception, record.sendId, index));
    if (!record.detail.empty()) record.detail += ' ';
    record.detail += fmt::format("-> exception {}", exception);
    recordCall(w, record, true);
    return S_OK;
  }

  HRESULT done(bool withObject = true) {
    recordCall(w, record, withObject);
    w.changed.notify_all();
    return S_OK;
  }

  // The object a call names, with the user's id put in for SIMCONNECT_OBJECT_ID_USER.
  SimObject* object(DWORD objectId) {
    SimObject* o = findObject(w, objectId);
    record.objectId = o ? o->state.objectId : objectId;
    return o;
  }
};

std::string upper(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

bool sameNoCase(std::string_view a, std::string_view b) { return upper(a) == upper(b); }

}  // namespace

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_Open)(HANDLE* phSimConnect, LPCSTR szName, HWND hWnd, DWORD UserEventWin32,
                              HANDLE hEventHandle, DWORD ConfigIndex) {
  World& w = world();
  std::lock_guard lock(w.mutex);
  CallRecord record;
  record.frame = w.frame;
  record.call = "SimConnect_Open";
  record.session = szName ? szName : "";
  record.id = ConfigIndex;
  record.result = E_FAIL;
  if (phSimConnect != nullptr) *phSimConnect = nullptr;
  if (phSimConnect == nullptr || szName == nullptr) {
    record.detail = "no handle or name";
  } else if (!w.up) {
    record.detail = "no simulator";
  } else if (hWnd != nullptr || UserEventWin32 != 0 || hEventHandle != nullptr) {
    // Clients here poll; the stand-in signals no window and no event object.
    record.detail = "window or event notification is not served";
  } else {
    auto f = std::find_if(w.failures.begin(), w.failures.end(),
                          [](const InjectedFailure& x) { return x.call == "SimConnect_Open" && x.remaining != 0; });
    if (f != w.failures.end()) {
      if (f->remaining > 0 && --f->remaining == 0) w.failures.erase(f);
      record.detail = "injected failure";
    } else {
      Session s;
      s.key = w.nextSessionKey++;
      s.name = szName;
      const Scenario& sc = w.scenario;
      s.inbox.push_back(makeOpen(recordVersion(w), applicationName(sc), sc.applicationVersion, sc.simConnectVersion));
      const std::uintptr_t key = s.key;
      w.sessions.emplace(key, std::move(s));
      *phSimConnect = reinterpret_cast<HANDLE>(key);
      record.result = S_OK;
    }
  }
  recordCall(w, record, false);
  w.changed.notify_all();
  return record.result;
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_Close)(HANDLE hSimConnect) {
  World& w = world();
  std::lock_guard lock(w.mutex);
  auto it = w.sessions.find(keyOf(hSimConnect));
  if (it == w.sessions.end()) return E_FAIL;
  CallRecord record;
  record.frame = w.frame;
  record.call = "SimConnect_Close";
  record.session = it->second.name;
  auto f = std::find_if(w.failures.begin(), w.failures.end(),
                        [](const InjectedFailure& x) { return x.call == "SimConnect_Close" && x.remaining != 0; });
  if (f != w.failures.end()) {
    if (f->remaining > 0 && --f->remaining == 0) w.failures.erase(f);
    record.result = E_FAIL;
    record.detail = "injected failure";
    recordCall(w, record, false);
    return E_FAIL;
  }
  recordCall(w, record, false);
  closeSession(w, it->second);
  return S_OK;
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_CallDispatch)(HANDLE hSimConnect, DispatchProc pfcnDispatch, void* pContext) {
  World& w = world();
  std::deque<Record> batch;
  {
    std::lock_guard lock(w.mutex);
    auto it = w.sessions.find(keyOf(hSimConnect));
    if (it == w.sessions.end() || it->second.lost || pfcnDispatch == nullptr) return E_FAIL;
    Session& s = it->second;
    auto f = std::find_if(w.failures.begin(), w.failures.end(), [](const InjectedFailure& x) {
      return x.call == "SimConnect_CallDispatch" && x.remaining != 0;
    });
    if (f != w.failures.end()) {
      if (f->remaining > 0 && --f->remaining == 0) w.failures.erase(f);
      return E_FAIL;
    }
    if (s.inbox.empty() && s.dead) return E_FAIL;
    batch.swap(s.inbox);
    ++w.dispatching;
  }
  // The callback runs unlocked: it may call SimConnect again, and another thread may step frames.
  // The simulator's library is C code: an exception thrown by the callback cannot pass through
  // it and ends the program. The noexcept call does the same here, so no client can rely on it.
  const auto deliver = [&](Record& r) noexcept {
    pfcnDispatch(reinterpret_cast<SIMCONNECT_RECV*>(r.data()), static_cast<DWORD>(r.size()), pContext);
  };
  for (Record& r : batch) deliver(r);
  std::lock_guard lock(w.mutex);
  --w.dispatching;
  w.changed.notify_all();
  return S_OK;
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_GetLastSentPacketID)(HANDLE hSimConnect, DWORD* pdwError) {
  World& w = world();
  std::lock_guard lock(w.mutex);
  auto it = w.sessions.find(keyOf(hSimConnect));
  if (it == w.sessions.end() || it->second.lost || pdwError == nullptr) return E_FAIL;
  auto f = std::find_if(w.failures.begin(), w.failures.end(), [](const InjectedFailure& x) {
    return x.call == "SimConnect_GetLastSentPacketID" && x.remaining != 0;
  });
  if (f != w.failures.end()) {
    if (f->remaining > 0 && --f->remaining == 0) w.failures.erase(f);
    return E_FAIL;
  }
  *pdwError = it->second.lastSendId;
  return S_OK;
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_SubscribeToSystemEvent)(HANDLE hSimConnect, SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                const char* SystemEventName) {
  Call c(hSimConnect, "SimConnect_SubscribeToSystemEvent");
  if (!c.proceed) return c.early;
  c.record.id = EventID;
  c.record.detail = SystemEventName ? SystemEventName : "";
  const std::string name = systemEventName(c.record.detail);
  if (name.empty()) return c.raise(SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED);
  c.session->systemEvents[EventID] = name;
  // These three tell their present state at once.
  if (name == "Sim" && c.w.scenario.simEventOnSubscribe) {
    post(*c.session, makeEvent(recordVersion(c.w), EventID, c.w.inFlight ? 1 : 0));
  } else if (name == "Pause") {
    post(*c.session, makeEvent(recordVersion(c.w), EventID, legacyPause(c.w.pauseFlags)));
  } else if (name == "Pause_EX1") {
    post(*c.session, makeEvent(recordVersion(c.w), EventID, c.w.pauseFlags));
  }
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AddToDataDefinition)(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                             const char* DatumName, const char* UnitsName, SIMCONNECT_DATATYPE DatumType,
                                             float, DWORD) {
  Call c(hSimConnect, "SimConnect_AddToDataDefinition");
  if (!c.proceed) return c.early;
  c.record.id = DefineID;
  const BindResult bound = bindDatum(DatumName, UnitsName, DatumType);
  c.record.detail = fmt::format("{}|{}", DatumName ? DatumName : "", UnitsName ? UnitsName : "");
  if (!bound.binding) return c.raise(bound.exception);
  c.record.detail = bound.binding->description;
  c.session->definitions[DefineID].datums.push_back(*bound.binding);
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_MapClientEventToSimEvent)(HANDLE hSimConnect, SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                  const char* EventName) {
  Call c(hSimConnect, "SimConnect_MapClientEventToSimEvent");
  if (!c.proceed) return c.early;
  c.record.id = EventID;
  const std::string name = upper(EventName ? EventName : "");
  c.record.detail = name;
  if (c.session->clientEvents.count(EventID)) return c.raise(SIMCONNECT_EXCEPTION_EVENT_ID_DUPLICATE);
  // An empty name makes a private client event, which the simulator only passes on.
  if (!name.empty() && !isKnownSimEvent(name)) return c.raise(SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED);
  c.session->clientEvents[EventID] = name;
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AddClientEventToNotificationGroup)(HANDLE hSimConnect, SIMCONNECT_NOTIFICATION_GROUP_ID GroupID,
                                                           SIMCONNECT_CLIENT_EVENT_ID EventID, BOOL bMaskable) {
  Call c(hSimConnect, "SimConnect_AddClientEventToNotificationGroup");
  if (!c.proceed) return c.early;
  c.record.id = GroupID;
  c.record.detail = fmt::format("event {}{}", EventID, bMaskable ? " maskable" : "");
  if (!c.session->clientEvents.count(EventID)) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  auto& events = c.session->groups[GroupID];
  if (std::find(events.begin(), events.end(), EventID) == events.end()) events.push_back(EventID);
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_SetNotificationGroupPriority)(HANDLE hSimConnect, SIMCONNECT_NOTIFICATION_GROUP_ID GroupID,
                                                      DWORD uPriority) {
  Call c(hSimConnect, "SimConnect_SetNotificationGroupPriority");
  if (!c.proceed) return c.early;
  c.record.id = GroupID;
  c.record.detail = fmt::format("priority {}", uPriority);
  if (!c.session->groups.count(GroupID)) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  c.session->groupPriorities[GroupID] = uPriority;
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_RequestDataOnSimObject)(HANDLE hSimConnect, SIMCONNECT_DATA_REQUEST_ID RequestID,
                                                SIMCONNECT_DATA_DEFINITION_ID DefineID, SIMCONNECT_OBJECT_ID ObjectID,
                                                SIMCONNECT_PERIOD Period, SIMCONNECT_DATA_REQUEST_FLAG Flags, DWORD,
                                                DWORD, DWORD) {
  Call c(hSimConnect, "SimConnect_RequestDataOnSimObject");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  c.record.detail = fmt::format("definition {} period {}", DefineID, static_cast<int>(Period));
  SimObject* o = c.object(ObjectID);
  if (!c.session->definitions.count(DefineID) || o == nullptr) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (Period > SIMCONNECT_PERIOD_SECOND) return c.raise(SIMCONNECT_EXCEPTION_ERROR);
  // A request id names one request: a new period replaces the old one.
  std::erase_if(c.session->periodic, [&](const PeriodicRequest& r) { return r.requestId == RequestID; });
  if (Period == SIMCONNECT_PERIOD_ONCE) {
    sendObjectData(c.w, *c.session, RequestID, DefineID, *o, Flags);
  } else if (Period != SIMCONNECT_PERIOD_NEVER) {
    c.session->periodic.push_back({RequestID, DefineID, o->state.objectId, Period, Flags, c.w.frame});
  }
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_RequestDataOnSimObjectType)(HANDLE hSimConnect, SIMCONNECT_DATA_REQUEST_ID RequestID,
                                                    SIMCONNECT_DATA_DEFINITION_ID DefineID, DWORD dwRadiusMeters,
                                                    SIMCONNECT_SIMOBJECT_TYPE type) {
  Call c(hSimConnect, "SimConnect_RequestDataOnSimObjectType");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  c.record.detail = fmt::format("definition {} radius {} type {}", DefineID, dwRadiusMeters, static_cast<int>(type));
  auto def = c.session->definitions.find(DefineID);
  if (def == c.session->definitions.end()) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (type > SIMCONNECT_SIMOBJECT_TYPE_GROUND) return c.raise(SIMCONNECT_EXCEPTION_ERROR);
  // The SDK's limit; above it the simulator answers with an exception, not a smaller radius.
  if (dwRadiusMeters > 200000) return c.raise(SIMCONNECT_EXCEPTION_OUT_OF_BOUNDS);
  // Objects of the stand-in are aircraft or helicopters; none is a boat or a ground vehicle.
  const auto ofType = [type](const SimObject& o) {
    if (type == SIMCONNECT_SIMOBJECT_TYPE_ALL) return true;
    if (type == SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT) return !o.state.helicopter;
    if (type == SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER) return o.state.helicopter;
    return false;
  };
  std::vector<const SimObject*> found;
  const SimObject* user = findObject(c.w, SIMCONNECT_OBJECT_ID_USER);
  const double radius = dwRadiusMeters;
  for (const auto& [id, o] : c.w.objects) {
    // The user is always within the radius.
    if (o.state.isUser) {
      if (type == SIMCONNECT_SIMOBJECT_TYPE_USER || ofType(o)) found.push_back(&o);
      continue;
    }
    if (!ofType(o) || radius <= 0 || user == nullptr) continue;
    const double la1 = user->state.latitude * 0.017453292519943295, la2 = o.state.latitude * 0.017453292519943295;
    const double dla = la2 - la1, dlo = (o.state.longitude - user->state.longitude) * 0.017453292519943295;
    const double h = std::sin(dla / 2) * std::sin(dla / 2) + std::cos(la1) * std::cos(la2) * std::sin(dlo / 2) * std::sin(dlo / 2);
    const double metres = 2 * 6371008.8 * std::asin(std::min(1.0, std::sqrt(h)));
    if (metres <= radius) found.push_back(&o);
  }
  const auto outOf = static_cast<DWORD>(found.size());
  for (DWORD i = 0; i < outOf; ++i) {
    const SimContext context = simContext(c.w, found[i]->state);
    std::vector<std::uint8_t> block;
    for (const auto& d : def->second.datums) appendDatum(block, d, found[i]->state, context);
    post(*c.session, makeObjectData(recordVersion(c.w), true, RequestID, found[i]->state.objectId, DefineID, 0, i + 1,
                                    outOf, static_cast<DWORD>(def->second.datums.size()), block));
  }
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_SetDataOnSimObject)(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                            SIMCONNECT_OBJECT_ID ObjectID, SIMCONNECT_DATA_SET_FLAG,
                                            DWORD ArrayCount, DWORD cbUnitSize, void* pDataSet) {
  Call c(hSimConnect, "SimConnect_SetDataOnSimObject");
  if (!c.proceed) return c.early;
  c.record.id = DefineID;
  SimObject* o = c.object(ObjectID);
  auto def = c.session->definitions.find(DefineID);
  if (def == c.session->definitions.end() || o == nullptr) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (pDataSet == nullptr) return c.raise(SIMCONNECT_EXCEPTION_DATA_ERROR);
  if (ArrayCount > 1) return c.raise(SIMCONNECT_EXCEPTION_INVALID_ARRAY);
  const auto& datums = def->second.datums;
  std::size_t fixedSize = 0;
  bool variable = false;
  for (std::size_t i = 0; i < datums.size(); ++i) {
    if (!datums[i].settable) return c.raise(SIMCONNECT_EXCEPTION_DATA_ERROR, static_cast<DWORD>(i + 1));
    variable = variable || datums[i].size == 0;
    fixedSize += datums[i].size;
  }
  if (!variable && cbUnitSize != fixedSize) return c.raise(SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE);
  // Decode into a copy first, so that a short block changes nothing.
  ObjectState changed = o->state;
  const auto* bytes = static_cast<const std::uint8_t*>(pDataSet);
  std::size_t at = 0;
  for (const auto& d : datums) {
    const auto taken = applyDatum(bytes + at, cbUnitSize - at, d, changed);
    if (!taken) return c.raise(SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE);
    at += *taken;
  }
  o->state = changed;
  ++o->state.positionWrites;
  return c.done(false);
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_TransmitClientEvent)(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                             SIMCONNECT_CLIENT_EVENT_ID EventID, DWORD dwData,
                                             SIMCONNECT_NOTIFICATION_GROUP_ID GroupID, SIMCONNECT_EVENT_FLAG) {
  Call c(hSimConnect, "SimConnect_TransmitClientEvent");
  if (!c.proceed) return c.early;
  c.record.id = EventID;
  SimObject* o = c.object(ObjectID);
  auto mapped = c.session->clientEvents.find(EventID);
  c.record.detail = fmt::format("{} {}", mapped == c.session->clientEvents.end() ? "?" : mapped->second, dwData);
  if (o == nullptr || mapped == c.session->clientEvents.end()) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  applyClientEvent(*o, mapped->second, dwData);
  recordEvent(*o, EventRecord{c.w.frame, mapped->second, EventID, dwData, GroupID});
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AICreateNonATCAircraft)(HANDLE hSimConnect, const char* szContainerTitle,
                                                const char* szTailNumber, SIMCONNECT_DATA_INITPOSITION InitPos,
                                                SIMCONNECT_DATA_REQUEST_ID RequestID) {
  Call c(hSimConnect, "SimConnect_AICreateNonATCAircraft");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  c.record.detail = fmt::format("'{}' {}", szContainerTitle ? szContainerTitle : "", szTailNumber ? szTailNumber : "");
  if (szContainerTitle == nullptr || szTailNumber == nullptr) return c.raise(SIMCONNECT_EXCEPTION_DATA_ERROR);
  PendingCreate pending;
  pending.session = c.session->key;
  pending.sendId = c.record.sendId;
  pending.requestId = RequestID;
  pending.title = szContainerTitle;
  pending.tailNumber = szTailNumber;
  pending.position = InitPos;
  pending.dueFrame = c.w.frame + static_cast<std::uint64_t>(c.w.scenario.createDelayFrames);
  pending.call = c.record;
  c.w.creates.push_back(std::move(pending));
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AIRemoveObject)(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                        SIMCONNECT_DATA_REQUEST_ID RequestID) {
  Call c(hSimConnect, "SimConnect_AIRemoveObject");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  SimObject* o = c.object(ObjectID);
  if (o == nullptr) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (o->state.isUser) return c.raise(SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE);
  if (!o->removalPending) {
    o->removalPending = true;
    c.w.removals.push_back({o->state.objectId, c.w.frame + static_cast<std::uint64_t>(c.w.scenario.removeDelayFrames)});
  }
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AIReleaseControl)(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                          SIMCONNECT_DATA_REQUEST_ID RequestID) {
  Call c(hSimConnect, "SimConnect_AIReleaseControl");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  SimObject* o = c.object(ObjectID);
  if (o == nullptr) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (o->state.isUser) return c.raise(SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE);
  o->state.aiControlled = false;
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AISetAircraftFlightPlan)(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                                 const char* szFlightPlanPath, SIMCONNECT_DATA_REQUEST_ID RequestID) {
  Call c(hSimConnect, "SimConnect_AISetAircraftFlightPlan");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  c.record.detail = szFlightPlanPath ? szFlightPlanPath : "";
  SimObject* o = c.object(ObjectID);
  if (o == nullptr) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (o->state.isUser) return c.raise(SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE);
  // The simulator takes the path with or without its ".pln".
  const auto exists = [](const std::string& utf8) {
    std::error_code ec;
    return std::filesystem::is_regular_file(std::filesystem::path(std::u8string(utf8.begin(), utf8.end())), ec);
  };
  const bool found = !c.record.detail.empty() && (exists(c.record.detail) || exists(c.record.detail + ".pln"));
  if (!found) return c.raise(SIMCONNECT_EXCEPTION_LOAD_FLIGHTPLAN_FAILED);
  o->state.flightPlan = c.record.detail;
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_AddToFacilityDefinition)(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                                 const char* FieldName) {
  Call c(hSimConnect, "SimConnect_AddToFacilityDefinition");
  if (!c.proceed) return c.early;
  c.record.id = DefineID;
  c.record.detail = FieldName ? FieldName : "";
  const DWORD exception = addFacilityKeyword(c.session->facilityDefinitions[DefineID], FieldName);
  if (exception != SIMCONNECT_EXCEPTION_NONE) return c.raise(exception);
  return c.done();
}

SIMCONNECTAPI ORV_STANDIN_ENTRY(SimConnect_RequestFacilityData)(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                             SIMCONNECT_DATA_REQUEST_ID RequestID, const char* ICAO,
                                             const char* Region) {
  Call c(hSimConnect, "SimConnect_RequestFacilityData");
  if (!c.proceed) return c.early;
  c.record.id = RequestID;
  c.record.detail = fmt::format("definition {} '{}' '{}'", DefineID, ICAO ? ICAO : "", Region ? Region : "");
  auto def = c.session->facilityDefinitions.find(DefineID);
  if (def == c.session->facilityDefinitions.end()) return c.raise(SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID);
  if (!def->second.complete || ICAO == nullptr) return c.raise(SIMCONNECT_EXCEPTION_DATA_ERROR);
  const std::string_view region = Region ? Region : "";
  const AirportEntry* airport = nullptr;
  for (const auto& a : c.w.scenario.airports) {
    if (sameNoCase(a.icao, ICAO) && (region.empty() || a.region.empty() || sameNoCase(a.region, region))) airport = &a;
  }
  for (auto& r : facilityReplies(def->second, airport, RequestID, c.w.lastFacilityUniqueId, recordVersion(c.w))) {
    post(*c.session, std::move(r));
  }
  return c.done();
}
