#include "simlink/sim_dispatch.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <exception>
#include <mutex>
#include <string>
#include <utility>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "simlink/sim_run_state.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "foundation/user_error.h"
#include "simlink/sim_ids.h"
#include "simlink/sim_queues.h"
#include "simlink/sim_outbox.h"
#include "simlink/sim_session.h"
#include "simlink/user_aircraft.h"
#include "simlink/user_model.h"
#include "simlink/user_stand.h"

namespace orv {
namespace {

#pragma pack(push, 1)
// Definition 404.
struct InRangeBlock {
  double agl = 0;        // feet
  double groundAlt = 0;  // feet
  std::int64_t onGround = 0;
  char atcId[32] = {};
};
// Definition 405.
struct StaticDataBlock {
  double cgToGround = 0;  // feet
  double staticPitch = 0;  // radians
};
#pragma pack(pop)

// Hexids up to this number are static parked aircraft; live ones are transponder addresses.
constexpr std::uint32_t kLastStaticHexid = 10000;

// The AS-GEN traffic of the simulator is logged once per run.
bool gv_asGenLogged = false;

// The data block of an object data record: the bytes after its header, as far as they go.
struct Block {
  const char* data = nullptr;
  std::size_t size = 0;
};

Block lf_blockOf(const SIMCONNECT_RECV_SIMOBJECT_DATA& record, DWORD size) {
  const char* start = reinterpret_cast<const char*>(&record.dwData);
  const std::size_t header = static_cast<std::size_t>(start - reinterpret_cast<const char*>(&record));
  return Block{start, size > header ? size - header : 0};
}

// A short block leaves the missing fields zero.
template <class T>
T lf_blockAs(const Block& b) {
  T out{};
  std::memcpy(&out, b.data, (std::min)(sizeof(T), b.size));
  return out;
}

std::string lf_textOf(const char* text, std::size_t room) { return std::string(text, strnlen(text, room)); }

template <class T>
const T* lf_as(const SIMCONNECT_RECV* record, DWORD size) {
  return size >= sizeof(T) ? static_cast<const T*>(record) : nullptr;
}

void lf_onNewFlight(std::uint32_t eventId) {
  if (eventId == kEvFlightLoaded) gf_log("SimConnect: flight loaded event");
  lf_rememberUserStand();
  requestStop(ExitReason::NewFlight, 45);
}

// A flight counts as running while it runs and no pause of any kind holds it.
void lf_updateSimRunning() {
  const bool running = gv_flightRunning.load() && !gv_flightPaused.load();
  gv_simRunning = running;
  gSimStatus.running.store(running);
  gf_repaint(ShownBand::Status);
}

void lf_onEvent(const SIMCONNECT_RECV_EVENT& event) {
  if (event.uEventID == kEvSim) {
    gv_flightRunning = event.dwData == 1;
    lf_updateSimRunning();
  } else if (event.uEventID == kEvPause) {
    gv_flightPaused = event.dwData != 0;
    lf_updateSimRunning();
  } else if (event.uEventID == kEvFlightLoaded) {
    lf_onNewFlight(event.uEventID);
  }
}

void lf_onObjectAddRemove(const SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE& event) {
  // Helicopters are objects of a type of their own; both kinds are traffic.
  const auto type = static_cast<std::uint32_t>(event.eObjType);
  if (type != kObjectTypeAircraft && type != kObjectTypeHelicopter) return;
  const std::uint32_t objectid = event.dwData;
  if (event.uEventID == kEvObjectAdded) {
    if (gf_isAiObject(objectid)) gAddedObjects.push_back(objectid);
  } else if (event.uEventID == kEvObjectRemoved) {
    gf_postNotice(SimNotice{objectid, 0, kObjectRemoved, 0, 0});
  }
}

void lf_onObjectData(const SIMCONNECT_RECV_SIMOBJECT_DATA& record, DWORD size) {
  const Block block = lf_blockOf(record, size);
  switch (record.dwRequestID) {
    case kReqStaticData: {
      const auto s = lf_blockAs<StaticDataBlock>(block);
      gf_postNotice(SimNotice{record.dwObjectID, 0, kStaticData, s.cgToGround, s.staticPitch});
      break;
    }
    case kReqUserTitle:
      lf_onUserTitle(lf_textOf(block.data, block.size));
      break;
    case kReqUserModel:
      lf_onUserModel(lf_textOf(block.data, (std::min)(block.size, std::size_t{32})));
      break;
    case kReqGroundAir:
      lf_onUserGroundAir(lf_blockAs<std::int64_t>(block));
      break;
    case kReqUserPosition:
      lf_onUserPosition(lf_blockAs<UserBlock>(block), record.dwObjectID);
      break;
    default:
      break;
  }
}

// Our own object has appeared: from now on it moves only by our position writes.
void lf_holdStill(std::uint32_t objectid) {
  std::lock_guard lock(gSimMutex);
  if (!gv_simRequestFailed.load()) SimConnect_AIReleaseControl(gv_simHandle, objectid, kReqRelease);
  const EventOut freeze[] = {{objectid, kEvFreezeLatLon, 1}, {objectid, kEvFreezeAltitude, 1},
                             {objectid, kEvFreezeAttitude, 1}};
  gEventOut.post(std::begin(freeze), std::end(freeze));
}

}  // namespace

void lf_onOpen(const SIMCONNECT_RECV_OPEN& open) {
  const std::string name = lf_textOf(open.szApplicationName, sizeof open.szApplicationName);
  if (name.empty()) {
    gf_log("! Simulator name empty?");
    return;
  }
  gSimStatus.connected.show(true);
  std::string plain;
  for (char c : name) {
    const auto u = static_cast<unsigned char>(c);
    if (std::isalnum(u) || std::isspace(u)) plain += c;
  }
  bool is2020 = true;
  if (plain == "KittyHawk")
    is2020 = true;
  else if (plain == "SunRise")
    is2020 = false;
  else
    throw UserErrorException(user_error::kUnknownSimulator, fmt::format(fmt::runtime(user_error::kUnknownSimulatorText), name));
  if (is2020 != gv_isMsfs2020) throw UserErrorException(user_error::kOtherSimulator, "");

  const std::string text =
      fmt::format("{} ({}.{}.{}.{})", is2020 ? "MSFS 2020" : "MSFS 2024", open.dwApplicationVersionMajor,
                  open.dwApplicationVersionMinor, open.dwApplicationBuildMajor, open.dwApplicationBuildMinor);
  gf_log("{} connected", text);
  gSimStatus.name.show(text);
  clearMessage();
}

void lf_onException(const SIMCONNECT_RECV_EXCEPTION& exception) {
  switch (exception.dwException) {
    case SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID:
      if (gv_userAircraftKnown.load() && !gf_stopping()) gf_logError("SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID");
      break;
    case SIMCONNECT_EXCEPTION_VERSION_MISMATCH:
      throw UserErrorException(user_error::kSimConnectVersion, "SimConnect Version Mismatch, dwIndex: {}",
                               exception.dwIndex);
    case SIMCONNECT_EXCEPTION_TOO_MANY_OBJECTS:
      setMessage("SimConnect: too many objects (max 1000)", true);
      break;
    case SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE:
      gf_log("SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE");
      break;
    case SIMCONNECT_EXCEPTION_CREATE_OBJECT_FAILED: {
      auto it = std::find_if(gPendingCreates.begin(), gPendingCreates.end(),
                             [&](const PendingCreate& p) { return p.sendId == exception.dwSendID; });
      if (it == gPendingCreates.end()) break;
      const std::uint32_t hexid = it->hexid;
      *it = std::move(gPendingCreates.back());
      gPendingCreates.pop_back();
      gf_postNotice(SimNotice{0, hexid, kCreateFailed, 0, 0});
      break;
    }
    case SIMCONNECT_EXCEPTION_LOAD_FLIGHTPLAN_FAILED:
      gf_logError("SimConnect exception: load flight plan failed");
      break;
    case SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE:
      gf_log("SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE");
      break;
    default:
      gf_logError("SIMCONNECT_EXCEPTION #{}", exception.dwException);
      break;
  }
}

void lf_onAircraftInRange(const SIMCONNECT_RECV_SIMOBJECT_DATA& record, DWORD size) {
  const std::uint32_t objectid = record.dwObjectID;
  if (!gf_isAiObject(objectid)) return;
  const auto block = lf_blockAs<InRangeBlock>(lf_blockOf(record, size));
  const std::string atcId = lf_textOf(block.atcId, sizeof block.atcId);

  auto added = std::find(gAddedObjects.begin(), gAddedObjects.end(), objectid);
  if (added == gAddedObjects.end()) {
    // An established object: only its ground data matter, and only near the ground.
    if (block.agl > 2500.0 || atcId.empty() || atcId.ends_with('*')) return;
    gf_postNotice(SimNotice{objectid, static_cast<std::uint32_t>(block.onGround != 0), kGroundData, block.groundAlt, block.agl});
    return;
  }
  *added = gAddedObjects.back();
  gAddedObjects.pop_back();

  // It has just appeared; the callsign given at its creation tells whether it is ours.
  auto pending = std::find_if(gPendingCreates.begin(), gPendingCreates.end(),
                              [&](const PendingCreate& p) { return p.callsign == atcId; });
  if (pending == gPendingCreates.end()) {
    if (atcId == "AS-GEN") {
      if (!gv_asGenLogged) {
        gv_asGenLogged = true;
        gf_logError(fmt::format("\nSpawned by Asobo, oid: {}, callsign AS-GEN, altaboveGnd:{:.0f} ft, onground:{}, "
                                "gnd_alt:{:.0f} ft\nThis message will be logged only once...\n",
                                objectid, block.agl, block.onGround, block.groundAlt));
      }
    } else {
      gf_log("just spawned, but not by {}, oid: {}, callsign '{}', altaboveGnd:{:.0f} ft, onground:{}, gnd_alt:{:.0f} ft",
             kProgramName, objectid, atcId, block.agl, block.onGround, block.groundAlt);
    }
    return;
  }
  const std::uint32_t hexid = pending->hexid;
  *pending = std::move(gPendingCreates.back());
  gPendingCreates.pop_back();

  lf_holdStill(objectid);
  if (hexid <= kLastStaticHexid)
    gf_postNotice(SimNotice{objectid, hexid, kParkedCreated, 0, 0});
  else
    gf_postNotice(SimNotice{objectid, hexid, kLiveCreated, block.agl, 0});
}

void CALLBACK lf_dispatch(SIMCONNECT_RECV* record, DWORD size, void*) {
  if (record == nullptr) return;
  switch (record->dwID) {
    case SIMCONNECT_RECV_ID_NULL:
    case SIMCONNECT_RECV_ID_ASSIGNED_OBJECT_ID:
    case SIMCONNECT_RECV_ID_CLIENT_DATA:
    case SIMCONNECT_RECV_ID_EVENT_EX1:
      return;
    case SIMCONNECT_RECV_ID_EXCEPTION:
      if (auto* e = lf_as<SIMCONNECT_RECV_EXCEPTION>(record, size)) lf_onException(*e);
      return;
    case SIMCONNECT_RECV_ID_OPEN:
      if (auto* o = lf_as<SIMCONNECT_RECV_OPEN>(record, size)) lf_onOpen(*o);
      return;
    case SIMCONNECT_RECV_ID_QUIT:
      gv_simRunning = false;
      return;
    case SIMCONNECT_RECV_ID_EVENT:
      if (auto* e = lf_as<SIMCONNECT_RECV_EVENT>(record, size)) lf_onEvent(*e);
      return;
    case SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE:
      if (auto* e = lf_as<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(record, size)) lf_onObjectAddRemove(*e);
      return;
    case SIMCONNECT_RECV_ID_EVENT_FILENAME:
      if (auto* e = lf_as<SIMCONNECT_RECV_EVENT_FILENAME>(record, size)) {
        gf_logError("SimConnect: New file event");
        lf_onNewFlight(e->uEventID);
      }
      return;
    case SIMCONNECT_RECV_ID_EVENT_FRAME:
      lf_sendToSim();
      return;
    case SIMCONNECT_RECV_ID_SIMOBJECT_DATA:
      if (auto* d = lf_as<SIMCONNECT_RECV_SIMOBJECT_DATA>(record, size)) lf_onObjectData(*d, size);
      return;
    case SIMCONNECT_RECV_ID_SIMOBJECT_DATA_BYTYPE:
      if (auto* d = lf_as<SIMCONNECT_RECV_SIMOBJECT_DATA>(record, size);
          d && (d->dwRequestID == kReqInRange || d->dwRequestID == kReqHelicoptersInRange))
        lf_onAircraftInRange(*d, size);
      return;
    default:
      gf_log("! Unknown Dispatch dwID {}", record->dwID);
      return;
  }
}

namespace {

// The failure of the running dispatch; SimClient thread only.
thread_local std::exception_ptr tDispatchFailure;

void CALLBACK lf_guardedDispatch(SIMCONNECT_RECV* record, DWORD size, void* context) noexcept {
  if (tDispatchFailure) return;  // the session ends on the first failure
  try {
    lf_dispatch(record, size, context);
  } catch (...) {
    tDispatchFailure = std::current_exception();
  }
}

}  // namespace

void lf_callDispatch(HANDLE handle) {
  SimConnect_CallDispatch(handle, lf_guardedDispatch, nullptr);
  if (std::exception_ptr failure = std::exchange(tDispatchFailure, nullptr)) std::rethrow_exception(failure);
}

void lf_resetDispatchState() { gv_asGenLogged = false; }

}  // namespace orv
