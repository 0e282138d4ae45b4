#pragma once
// Control of the stand-in simulator that answers the SimConnect calls in builds without the
// simulator: load a scenario, start and stop it, step its frames, look at its objects and at
// what the clients did to them, inject failures, and trace every object to a CSV file.
//
// Every function here is thread-safe against the SimConnect calls of any client thread.
// Clients poll with SimConnect_CallDispatch; records are delivered on the polling thread.
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simconnect/simconnect_subset.h"

namespace orv::standin {

// A scenario that cannot be read or is not well-formed; what() names the file and the place.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// "LIGHT STATES" bits, as the simulator numbers them.
inline constexpr std::int64_t kLightNav = 0x0001;
inline constexpr std::int64_t kLightBeacon = 0x0002;
inline constexpr std::int64_t kLightLanding = 0x0004;
inline constexpr std::int64_t kLightTaxi = 0x0008;
inline constexpr std::int64_t kLightStrobe = 0x0010;
inline constexpr std::int64_t kLightPanel = 0x0020;
inline constexpr std::int64_t kLightRecognition = 0x0040;
inline constexpr std::int64_t kLightWing = 0x0080;
inline constexpr std::int64_t kLightLogo = 0x0100;
inline constexpr std::int64_t kLightCabin = 0x0200;
inline constexpr std::int64_t kAllLights = 0x03FF;

// One object of the world as it stands; angles in radians, as the simulator keeps them.
struct ObjectState {
  DWORD objectId = 0;
  bool isUser = false;
  std::string title;
  std::string atcId;     // the callsign ("ATC ID"); the tail number given at creation
  std::string atcModel;  // "ATC MODEL"
  bool helicopter = false;  // of the helicopter type: ObjectAdded and the by-type requests say so
  double latitude = 0, longitude = 0, altitudeFt = 0;
  double pitchRad = 0, bankRad = 0, headingRad = 0;
  double verticalSpeedFps = 0, trueAirspeedKt = 0, groundSpeedKt = 0;
  std::int64_t lights = 0;
  double flapsPercent = 0;
  bool gearDown = true;
  double spoilersPercent = 0;
  double throttlePercent[2] = {0, 0};
  bool enginesRunning = false;
  bool freezeLatLon = false, freezeAltitude = false, freezeAttitude = false;
  bool aiControlled = false;  // an AI object not (or no longer) released by AIReleaseControl
  double staticCgFt = 0;      // "Static CG to Ground"
  double staticPitchRad = 0;  // "Static Pitch"
  std::string flightPlan;     // path given to AISetAircraftFlightPlan
  std::uint64_t positionWrites = 0;  // SetDataOnSimObject calls on this object
  std::uint64_t createdFrame = 0;
  // Derived from the terrain at the moment of the copy.
  double groundElevationFt = 0;
  bool onGround = false;  // "SIM ON GROUND": at or below terrain plus static CG height
};

// A client event sent to an object with SimConnect_TransmitClientEvent.
struct EventRecord {
  std::uint64_t frame = 0;
  std::string event;  // the simulator event it was mapped to, e.g. "FLAPS_SET"
  DWORD clientEventId = 0;
  DWORD data = 0;
  DWORD groupId = 0;
};

// One SimConnect call of a client, successful or not.
struct CallRecord {
  std::uint64_t frame = 0;
  std::string session;  // the name given to SimConnect_Open
  std::string call;     // e.g. "SimConnect_AIReleaseControl"
  DWORD objectId = 0;   // the object it was about, 0 when none
  DWORD id = 0;         // request, event or definition id of the call
  DWORD sendId = 0;     // as SimConnect_GetLastSentPacketID gives it; 0 for a refused call
  HRESULT result = S_OK;
  std::string detail;   // readable arguments, e.g. "FLAPS_SET 3072"
};

// What one client declared, for checking a session's set-up.
struct SessionInfo {
  std::string name;
  std::map<DWORD, std::string> systemEvents;                    // client event id -> system event
  std::map<DWORD, std::string> clientEvents;                    // client event id -> simulator event
  std::map<DWORD, std::vector<DWORD>> groups;                   // group id -> client events in order
  std::map<DWORD, DWORD> groupPriorities;                       // group id -> priority
  std::map<DWORD, std::vector<std::string>> dataDefinitions;    // id -> "DATUM|unit|type" in order
  std::map<DWORD, std::vector<std::string>> facilityDefinitions;  // id -> keywords in order
};

// --- Scenario and life -------------------------------------------------------------------

// Replace the scenario; the simulator must be stopped. Throws ScenarioError.
void loadScenarioFile(const std::filesystem::path& file);
void loadScenarioText(std::string_view json, std::string_view origin = "scenario text");
// Back to the built-in scenario, stopped, no sessions, no failures, no trace.
void reset();

enum class Clock {
  Stepped,   // frames advance only through advanceFrames (tests)
  RealTime,  // a thread of the stand-in advances frames at the frame rate (demo)
};
// The simulator comes up with the world of the scenario at frame 0: SimConnect_Open succeeds.
// A real-time clock runs timeScale simulated seconds per wall second (a replay faster than
// real time); the frames, and so every event and trace row, stay those of the simulated time.
void start(Clock clock = Clock::Stepped, double timeScale = 1.0);
// The simulator goes away: every session gets a Quit record (if sendQuit) and is dead after it,
// and SimConnect_Open fails again. Objects stay for inspection until the next start.
void stop(bool sendQuit = true);
bool isRunning();

// Stepped clock only. Runs scripted events, settles creations and removals, answers periodic
// requests and sends a Frame event to each subscriber, once per frame.
void advanceFrames(int count);
void advanceSeconds(double seconds);
std::uint64_t frame();
double simTime();  // seconds since start
double frameRate();

// Waits until every live session has taken all its records and no dispatch is running.
// False when the timeout passed first.
bool waitUntilIdle(std::chrono::milliseconds timeout = std::chrono::seconds(10));
// Waits until a session of that name is open. False when the timeout passed first.
bool waitForSession(std::string_view name, std::chrono::milliseconds timeout = std::chrono::seconds(10));

// --- Events of the simulator ---------------------------------------------------------------

// A flight running (true) or the menus (false): "Sim" event, with "SimStart"/"SimStop".
void setInFlight(bool inFlight);
// A full pause of the flight: "Pause_EX1" (flags 1), "Pause" with "Paused"/"Unpaused". "Sim"
// stays as it is: a paused flight still runs.
void setPaused(bool paused);
// The active pause: "Pause_EX1" with flags 4 only.
void setActivePause(bool paused);
// "FlightLoaded" with a file name record.
void loadFlight(std::string_view file);
// Any file name event: "FlightLoaded", "FlightSaved", "AircraftLoaded", "FlightPlanActivated".
void fileEvent(std::string_view systemEvent, std::string_view file);

// Moves the user aircraft (a jump; "teleport").
void moveUser(double latitude, double longitude, std::optional<double> altitudeFt = std::nullopt,
              std::optional<double> headingDeg = std::nullopt);
void setUserGroundSpeed(double knots);
void setTerrainElevation(double feet);

// An aircraft of the simulator's own traffic (no client made it): ObjectAdded is sent.
DWORD addForeignAircraft(std::string_view title, std::string_view atcId, double latitude, double longitude,
                         std::optional<double> altitudeFt = std::nullopt, double headingDeg = 0);
// The simulator removes an object by itself: ObjectRemoved is sent. False for an unknown id.
bool removeObject(DWORD objectId);

// --- Failures ------------------------------------------------------------------------------

// The next `count` calls of that name (every call when count < 0) fail: with E_FAIL when
// exception is 0, else they return S_OK and an exception record with their send id follows.
// Throws std::invalid_argument for a name that is not a SimConnect call of the program.
void failCalls(std::string_view call, int count = 1, DWORD exception = 0,
               DWORD index = SIMCONNECT_RECV_EXCEPTION::UNKNOWN_INDEX);
void clearFailures();
// Every open session breaks without a Quit record: all its calls fail with E_FAIL, as after a
// crash of the simulator's server. The simulator itself stays up.
void loseSessions();
// Creations beyond this number of AI objects fail with exception 11.
void setMaxAiObjects(std::size_t count);

// --- Inspection ----------------------------------------------------------------------------

DWORD userObjectId();
std::optional<ObjectState> object(DWORD objectId);
std::optional<ObjectState> objectByAtcId(std::string_view atcId);
std::vector<ObjectState> objects();  // user first, then by object id
std::vector<EventRecord> eventsFor(DWORD objectId);
std::vector<CallRecord> callsFor(DWORD objectId);  // without position writes, which are counted
std::vector<CallRecord> calls();                   // every call of every session (the latest 100000)
void clearCallLog();
std::vector<std::string> sessionNames();  // open sessions, in order of opening
std::optional<SessionInfo> session(std::string_view name);

// --- Trace ---------------------------------------------------------------------------------

// Writes every object every `everyFrames` frames to a CSV file (header in the README).
// Throws std::runtime_error when the file cannot be written.
void startTrace(const std::filesystem::path& file, int everyFrames = 1);
void stopTrace();

}  // namespace orv::standin
