#pragma once
// The scenario of the stand-in simulator: which simulator it poses as, the user aircraft,
// the terrain, the titles it can create, its airports, and events scripted at times.
// Read from JSON; every unknown key is an error, so that a typing mistake never goes unseen.
#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simconnect/simconnect_subset.h"

namespace orv::standin {

// A place for an aircraft; whatever is left out stays as it was (or takes its default).
struct Placement {
  std::optional<double> latitude, longitude, altitudeFt;
  std::optional<double> headingDeg, pitchDeg, bankDeg, groundSpeedKt;
  std::optional<bool> onGround;  // true puts the aircraft at terrain plus its static CG height
};

struct UserAircraft {
  DWORD objectId = 1;
  std::string title = "Cessna Skyhawk G1000 Asobo";
  std::string atcModel = "C172";
  std::string atcId = "N172SP";
  double latitude = 50.0379, longitude = 8.5622, altitudeFt = 0;
  bool onGround = true;
  double headingDeg = 0, pitchDeg = 0, bankDeg = 0, groundSpeedKt = 0;
  std::int64_t lights = 0;
};

struct TitleEntry {
  std::string title;
  std::string model;  // its "ATC MODEL", which selects the static CG height and pitch
};

struct ModelStatics {
  double cgFt = 0;
  double pitchDeg = 0;
  bool helicopter = false;  // its objects are of the helicopter type, not aircraft
};

struct ParkingEntry {
  int type = 0, taxiPointType = 0, name = 0, suffix = 0;
  std::uint32_t number = 0;
  int orientation = 0;
  double headingDeg = 0, radiusM = 0, biasXM = 0, biasZM = 0;
};

struct HelipadEntry {
  double latitude = 0, longitude = 0, altitudeM = 0;
  double headingDeg = 0, lengthM = 0, widthM = 0;
  int surface = 0, type = 0;
};

struct AirportEntry {
  std::string icao, region, name;
  double latitude = 0, longitude = 0, altitudeM = 0;
  std::vector<ParkingEntry> parkings;
  std::vector<HelipadEntry> helipads;
};

enum class ScriptKind {
  InFlight,      // flag: flight running or menus
  Pause,         // flag: paused; value 1: an active pause
  FileEvent,     // text: system event, text2: file
  Quit,
  LoseSessions,
  MoveUser,      // placement
  AddAircraft,   // text: title, text2: atc id, placement
  RemoveObject,  // objectId, or text2: atc id
  FailCall,      // text: call, count, exception, index
  MaxAiObjects,  // count
  Terrain,       // value: elevation in feet
};

struct ScriptedEvent {
  double at = 0;  // seconds of simulator time
  ScriptKind kind = ScriptKind::Quit;
  bool flag = false;
  std::string text, text2;
  Placement placement;
  DWORD objectId = 0;
  int count = 1;
  DWORD exception = 0;
  DWORD index = SIMCONNECT_RECV_EXCEPTION::UNKNOWN_INDEX;
  double value = 0;
};

struct Scenario {
  std::string origin = "built-in scenario";
  int simulator = 2020;          // 2020 or 2024
  std::string applicationName;   // empty: "KittyHawk" or "SunRise" by simulator
  std::array<DWORD, 4> applicationVersion{};  // major, minor, build major, build minor
  std::array<DWORD, 4> simConnectVersion{};
  double frameRate = 30;
  std::int64_t zuluStart = 1717243200;  // seconds since 1970: 2024-06-01 12:00:00 UTC
  double terrainElevationFt = 0;  // the ground away from the airports
  double airportTerrainRadiusNm = 10;  // the ground within this of an airport lies at its elevation
  UserAircraft user;
  DWORD firstObjectId = 3;
  std::size_t maxAiObjects = 1000;
  int createDelayFrames = 1;       // frames from a create call to the object's existence
  int objectAddedDelayFrames = 0;  // frames from existence to the ObjectAdded event
  int removeDelayFrames = 1;       // frames from a remove call to ObjectRemoved
  bool simEventOnSubscribe = true; // subscribing to "Sim" gives the present state at once
  bool inFlight = true;
  bool paused = false;
  bool acceptAnyTitle = false;
  std::vector<TitleEntry> titles;
  std::map<std::string, ModelStatics> models;  // by ATC model, before the built-in table
  std::vector<AirportEntry> airports;
  std::vector<ScriptedEvent> events;  // sorted by time, stable
  std::string traceFile;              // not empty: traced from the start, every traceEveryFrames frames
  int traceEveryFrames = 30;
};

// The scenario with every default filled in, as loaded from empty JSON "{}".
Scenario defaultScenario();
Scenario parseScenario(std::string_view json, std::string_view origin);
Scenario readScenarioFile(const std::filesystem::path& file);

// True for the name of a SimConnect call that the program uses.
bool isProgramCall(std::string_view call);

// The application name the open record carries.
std::string applicationName(const Scenario& scenario);
// Static CG height and pitch of a model: the scenario's table, then the built-in one, then defaults.
ModelStatics modelStatics(const Scenario& scenario, std::string_view atcModel);
// The model of a creatable title, or nothing when the simulator doesn't know the title.
std::optional<std::string> modelOfTitle(const Scenario& scenario, std::string_view title);

}  // namespace orv::standin
