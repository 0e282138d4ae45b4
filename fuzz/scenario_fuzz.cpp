// The stand-in simulator's scenario JSON: the input is the file. A scenario that reads is
// then played: a client opens a session, asks for every airport's facility data and for the
// aircraft around the user, and the simulator runs its scripted events for up to 300 frames.
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_support.h"
#include "platform/simconnect/simconnect.h"
#include "platform/simconnect/standin_control.h"
#include "platform/simconnect/standin_scenario.h"

using namespace orv;
using namespace orv::standin;

namespace {

constexpr DWORD kFacilityDefinition = 1;
constexpr DWORD kAircraftDefinition = 2;
constexpr int kMostFrames = 300;

void CALLBACK takeRecord(SIMCONNECT_RECV* record, DWORD size, void*) {
  fuzz::check(record != nullptr && size >= sizeof(SIMCONNECT_RECV) && record->dwSize == size,
              "a record as long as it says");
}

void drain(HANDLE h) {
  if (h) SimConnect_CallDispatch(h, takeRecord, nullptr);
}

void defineRequests(HANDLE h) {
  for (const char* field : {"OPEN AIRPORT",
                            "LATITUDE",
                            "LONGITUDE",
                            "ALTITUDE",
                            "NAME",
                            "NAME64",
                            "ICAO",
                            "REGION",
                            "N_HELIPADS",
                            "N_TAXI_PARKINGS",
                            "OPEN TAXI_PARKING",
                            "TYPE",
                            "TAXI_POINT_TYPE",
                            "NAME",
                            "SUFFIX",
                            "NUMBER",
                            "ORIENTATION",
                            "HEADING",
                            "RADIUS",
                            "BIAS_X",
                            "BIAS_Z",
                            "CLOSE TAXI_PARKING",
                            "OPEN HELIPAD",
                            "LATITUDE",
                            "LONGITUDE",
                            "ALTITUDE",
                            "HEADING",
                            "LENGTH",
                            "WIDTH",
                            "SURFACE",
                            "TYPE",
                            "CLOSE HELIPAD",
                            "CLOSE AIRPORT"})
    SimConnect_AddToFacilityDefinition(h, kFacilityDefinition, field);
  SimConnect_AddToDataDefinition(h, kAircraftDefinition, "PLANE LATITUDE", "degrees");
  SimConnect_AddToDataDefinition(h, kAircraftDefinition, "PLANE ALT ABOVE GROUND", "feet");
  SimConnect_AddToDataDefinition(h, kAircraftDefinition, "TITLE", nullptr, SIMCONNECT_DATATYPE_STRING256);
  SimConnect_AddToDataDefinition(h, kAircraftDefinition, "ATC ID", nullptr, SIMCONNECT_DATATYPE_STRING32);
  SimConnect_SubscribeToSystemEvent(h, 1, "Sim");
  SimConnect_SubscribeToSystemEvent(h, 2, "ObjectAdded");
  SimConnect_RequestDataOnSimObject(h, 3, kAircraftDefinition, 0, SIMCONNECT_PERIOD_SECOND);
}

void play(const Scenario& scenario, std::string_view json) {
  loadScenarioText(json, "fuzz.json");
  start(Clock::Stepped);
  HANDLE h = nullptr;
  if (SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0) != S_OK) h = nullptr;
  if (h) {
    defineRequests(h);
    DWORD request = 100;
    for (const AirportEntry& airport : scenario.airports)
      SimConnect_RequestFacilityData(h, kFacilityDefinition, request++, airport.icao.c_str(), airport.region.c_str());
    SimConnect_RequestDataOnSimObjectType(h, 4, kAircraftDefinition, 200000, SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT);
    drain(h);
  }
  const double lastEvent = scenario.events.empty() ? 0.0 : scenario.events.back().at;
  // A scripted quit ends the simulator: no frame comes after it.
  for (int frame = 0; frame < kMostFrames && isRunning() && simTime() <= lastEvent + 1.0; ++frame) {
    advanceFrames(1);
    drain(h);
  }
  if (h) SimConnect_Close(h);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string json(fuzz::textOf(data, size));
  Scenario scenario;
  try {
    scenario = parseScenario(json, "fuzz.json");
  } catch (const ScenarioError&) {
    // Named by file and place; anything else leaving the parser is a finding.
    return 0;
  }
  reset();
  play(scenario, json);
  reset();
  return 0;
}
