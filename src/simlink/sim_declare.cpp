#include "simlink/sim_declare.h"

#include <array>
#include <cstdint>

#include "simlink/sim_ids.h"

namespace orv {
namespace {

struct SystemEvent {
  std::uint32_t id;
  const char* name;
};

constexpr std::array<SystemEvent, 6> kSystemEvents{{
    {kEvSim, "Sim"},
    {kEvObjectAdded, "ObjectAdded"},
    {kEvObjectRemoved, "ObjectRemoved"},
    {kEvFrame, "Frame"},
    {kEvFlightLoaded, "FlightLoaded"},
    {kEvPause, "Pause_EX1"},
}};

struct Datum {
  std::uint32_t definition;
  const char* name;
  const char* unit;  // none for texts
  SIMCONNECT_DATATYPE type;
};

constexpr SIMCONNECT_DATATYPE kF64 = SIMCONNECT_DATATYPE_FLOAT64;
constexpr SIMCONNECT_DATATYPE kI64 = SIMCONNECT_DATATYPE_INT64;

// The order within a definition is the order of its block.
constexpr std::array<Datum, 34> kDatums{{
    {kDefLevers, "SPOILERS HANDLE POSITION", "percent", kF64},
    {kDefLevers, "GENERAL ENG THROTTLE LEVER POSITION:1", "percent", kF64},
    {kDefLevers, "GENERAL ENG THROTTLE LEVER POSITION:2", "percent", kF64},

    {kDefPosition, "Plane Latitude", "degree", kF64},
    {kDefPosition, "Plane Longitude", "degree", kF64},
    {kDefPosition, "Plane Pitch degrees", "radians", kF64},
    {kDefPosition, "Plane Bank degrees", "radians", kF64},
    {kDefPosition, "Plane Heading degrees true", "radians", kF64},
    {kDefPosition, "Plane Altitude", "feet", kF64},
    {kDefPosition, "Vertical Speed", "feet per second", kF64},
    {kDefPosition, "Airspeed True", "knots", kF64},

    {kDefUserPosition, "Plane Latitude", "degree", kF64},
    {kDefUserPosition, "Plane Longitude", "degree", kF64},
    {kDefUserPosition, "Plane Pitch degrees", "radians", kF64},
    {kDefUserPosition, "Plane Bank degrees", "radians", kF64},
    {kDefUserPosition, "Plane Heading degrees true", "radians", kF64},
    {kDefUserPosition, "Plane Altitude", "feet", kF64},
    {kDefUserPosition, "Indicated Altitude", "feet", kF64},
    {kDefUserPosition, "Plane Alt Above Ground", "feet", kF64},
    {kDefUserPosition, "Ground Velocity", "knots", kF64},
    {kDefUserPosition, "ZULU TIME", "Seconds", kI64},
    {kDefUserPosition, "ZULU DAY OF YEAR", "Number", kI64},
    {kDefUserPosition, "ZULU YEAR", "Number", kI64},
    {kDefUserPosition, "LIGHT STATES", "Mask", kI64},
    {kDefUserPosition, "STANDARD ATM TEMPERATURE", "Rankine", kF64},

    {kDefInRange, "Plane Alt Above Ground", "feet", kF64},
    {kDefInRange, "Ground Altitude", "feet", kF64},
    {kDefInRange, "SIM ON GROUND", "Bool", kI64},
    {kDefInRange, "ATC ID", nullptr, SIMCONNECT_DATATYPE_STRING32},

    {kDefStaticData, "Static CG to Ground", "feet", kF64},
    {kDefStaticData, "Static Pitch", "radians", kF64},

    {kDefUserTitle, "TITLE", nullptr, SIMCONNECT_DATATYPE_STRINGV},
    {kDefUserModel, "ATC MODEL", nullptr, SIMCONNECT_DATATYPE_STRING32},
    {kDefGroundAir, "SIM ON GROUND", "Bool", kI64},
}};

struct ClientEvent {
  std::uint32_t id;
  const char* name;
  bool inGroup;
};

// ENGINE_AUTO_START alone stays outside the notification group.
constexpr std::array<ClientEvent, 17> kClientEvents{{
    {kEvBeaconLights, "BEACON_LIGHTS_SET", true},
    {kEvNavLights, "NAV_LIGHTS_SET", true},
    {kEvTaxiLights, "TAXI_LIGHTS_SET", true},
    {kEvStrobes, "STROBES_SET", true},
    {kEvLandingLights, "LANDING_LIGHTS_SET", true},
    {kEvCabinLights, "CABIN_LIGHTS_SET", true},
    {kEvLogoLights, "LOGO_LIGHTS_SET", true},
    {kEvAllLightsToggle, "ALL_LIGHTS_TOGGLE", true},
    {kEvFreezeLatLon, "FREEZE_LATITUDE_LONGITUDE_SET", true},
    {kEvFreezeAltitude, "FREEZE_ALTITUDE_SET", true},
    {kEvFreezeAttitude, "FREEZE_ATTITUDE_SET", true},
    {kEvFlaps, "FLAPS_SET", true},
    {kEvSpoilers, "SPOILERS_SET", true},
    {kEvGear, "GEAR_SET", true},
    {kEvEngineStart, "ENGINE_AUTO_START", false},
    {kEvEngineShutdown, "ENGINE_AUTO_SHUTDOWN", true},
    {kEvThrottle, "THROTTLE_SET", true},
}};

}  // namespace

void lf_declareToSim(HANDLE handle) {
  for (const SystemEvent& e : kSystemEvents) SimConnect_SubscribeToSystemEvent(handle, e.id, e.name);
  for (const Datum& d : kDatums)
    SimConnect_AddToDataDefinition(handle, d.definition, d.name, d.unit, d.type, 0.0f, SIMCONNECT_UNUSED);
  for (const ClientEvent& e : kClientEvents) SimConnect_MapClientEventToSimEvent(handle, e.id, e.name);
  for (const ClientEvent& e : kClientEvents)
    if (e.inGroup) SimConnect_AddClientEventToNotificationGroup(handle, kGroupAiEvents, e.id, TRUE);
  SimConnect_SetNotificationGroupPriority(handle, kGroupAiEvents, SIMCONNECT_GROUP_PRIORITY_HIGHEST);
}

}  // namespace orv
