#pragma once
// The state of the stand-in simulator: one world of objects, the open sessions with what each
// declared, the frame clock and the work due at later frames. Everything sits behind one lock,
// so that the client calls of any thread and the thread that steps frames interleave safely.
// Functions taking a World& expect that lock to be held.
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/simconnect/simconnect_subset.h"
#include "platform/simconnect/standin_control.h"
#include "platform/simconnect/standin_facilities.h"
#include "platform/simconnect/standin_records.h"
#include "platform/simconnect/standin_scenario.h"
#include "platform/simconnect/standin_simvars.h"
#include "platform/simconnect/standin_trace.h"

namespace orv::standin::detail {

struct DataDefinition {
  std::vector<DatumBinding> datums;
};

struct PeriodicRequest {
  DWORD requestId = 0, defineId = 0, objectId = 0;
  SIMCONNECT_PERIOD period = SIMCONNECT_PERIOD_NEVER;
  DWORD flags = 0;
  std::uint64_t fromFrame = 0;
};

struct Session {
  std::uintptr_t key = 0;
  std::string name;
  bool dead = false;  // the simulator quit: its records still drain, its calls fail
  bool lost = false;  // the connection broke: nothing comes any more, every call fails
  DWORD lastSendId = 0;
  std::deque<Record> inbox;
  std::map<DWORD, std::string> systemEvents;
  std::map<DWORD, std::string> clientEvents;
  std::map<DWORD, std::vector<DWORD>> groups;
  std::map<DWORD, DWORD> groupPriorities;
  std::map<DWORD, DataDefinition> definitions;
  std::map<DWORD, FacilityDefinition> facilityDefinitions;
  std::vector<PeriodicRequest> periodic;
};

struct SimObject {
  ObjectState state;
  std::uintptr_t owner = 0;  // the session that created it; 0 for the simulator's own
  bool removalPending = false;
  std::deque<EventRecord> events;
  std::deque<CallRecord> calls;
};

struct PendingCreate {
  std::uintptr_t session = 0;
  DWORD sendId = 0, requestId = 0;
  std::string title, tailNumber;
  SIMCONNECT_DATA_INITPOSITION position{};
  std::uint64_t dueFrame = 0;
  CallRecord call;
};

struct DueObject {
  DWORD objectId = 0;
  std::uint64_t dueFrame = 0;
};

struct InjectedFailure {
  std::string call;
  int remaining = 1;  // negative: without end
  DWORD exception = 0;
  DWORD index = 0;
};

struct World {
  World();
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  std::mutex mutex;
  std::condition_variable changed;  // records taken, sessions opened, frames stepped

  Scenario scenario;
  bool up = false;
  bool inFlight = true;
  DWORD pauseFlags = 0;  // as "Pause_EX1" tells them: 1 full pause, 4 active pause, 8 sim pause
  Clock clock = Clock::Stepped;
  std::uint64_t frame = 0;
  double terrainFt = 0;
  std::size_t maxAiObjects = 1000;

  std::map<DWORD, SimObject> objects;
  std::map<DWORD, SimObject> removed;  // kept for inspection until the next start
  DWORD nextObjectId = 3;
  std::map<std::uintptr_t, Session> sessions;
  std::uintptr_t nextSessionKey = 1;

  std::vector<PendingCreate> creates;
  std::vector<DueObject> addedNotices;
  std::vector<DueObject> removals;
  std::size_t nextScripted = 0;
  std::vector<InjectedFailure> failures;
  std::deque<CallRecord> callLog;
  int dispatching = 0;
  DWORD lastFacilityUniqueId = 0;
  Trace trace;

  std::thread clockThread;
  bool clockStop = false;
  double timeScale = 1.0;  // simulated seconds per wall second of the real-time clock
  std::condition_variable clockWake;
};

World& world();

// Life.
void buildWorld(World& w);  // frame 0, the scenario's user aircraft, no sessions' work pending
void stepFrame(World& w);
double simTime(const World& w);
SimContext simContext(const World& w);
// The ground under a position: flat at the elevation of the nearest airport of the scenario
// within its terrain radius, the scenario's base elevation (sea level unless set) elsewhere.
double terrainAt(const World& w, double latitude, double longitude);
// The context of one object's data: the terrain under it.
SimContext simContext(const World& w, const ObjectState& object);
DWORD recordVersion(const World& w);
void quit(World& w, bool sendQuit);
void loseAllSessions(World& w);
void closeSession(World& w, Session& session);
// Starts or ends the frame thread of the real-time clock; `lock` is released while joining.
void startClockThread(World& w);
void joinClockThread(World& w, std::unique_lock<std::mutex>& lock);

// Objects. Object id 0 stands for the user aircraft.
SimObject* findObject(World& w, DWORD objectId);
ObjectState snapshot(const World& w, const SimObject& object);
DWORD addObject(World& w, std::string_view title, std::string_view atcId, std::string_view model,
                const SIMCONNECT_DATA_INITPOSITION& position, std::uintptr_t owner);
void removeObjectNow(World& w, DWORD objectId);
void place(World& w, ObjectState& object, const Placement& placement);
void applyClientEvent(SimObject& object, const std::string& simEvent, DWORD data);

// Events to the clients.
void post(Session& session, Record record);
void broadcastSystemEvent(World& w, std::string_view systemEvent, DWORD data);
void broadcastFileEvent(World& w, std::string_view systemEvent, std::string_view file);
// Aircraft, or helicopter for a rotorcraft model; removed objects keep theirs.
SIMCONNECT_SIMOBJECT_TYPE objectType(const World& w, DWORD objectId);
void broadcastObjectEvent(World& w, std::string_view systemEvent, DWORD objectId);
void setInFlight(World& w, bool inFlight);
void setPauseFlags(World& w, DWORD flags);
// The flags of "Pause_EX1" (the SDK's PAUSE_STATE_FLAG_ values).
inline constexpr DWORD kPauseFull = 1, kPauseActive = 4;
// The older "Pause" event: 1 in a full pause.
inline DWORD legacyPause(DWORD flags) { return (flags & 3) != 0 ? 1 : 0; }
void sendObjectData(World& w, Session& session, DWORD requestId, DWORD defineId, const SimObject& object,
                    DWORD flags);

// The canonical spelling of a system event name, or empty for an unknown one.
std::string systemEventName(std::string_view name);
// True for a simulator event that the stand-in carries out.
bool isKnownSimEvent(std::string_view name);

// Records a call in the call log and, unless it is a position write, with its object.
void recordCall(World& w, const CallRecord& call, bool withObject);
void recordEvent(SimObject& object, const EventRecord& event);

}  // namespace orv::standin::detail
