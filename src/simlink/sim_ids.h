#pragma once
// The fixed numbers by which the session names its requests, data definitions, events and
// notification group. The simulator echoes them in its records, so they never change.
#include <cstdint>

namespace orv {

// Requests.
inline constexpr std::uint32_t kReqInRange = 101;       // aircraft within range, definition 404
inline constexpr std::uint32_t kReqStaticData = 102;    // static data of one new object, definition 405
inline constexpr std::uint32_t kReqRelease = 103;       // release an object from the simulator's AI
inline constexpr std::uint32_t kReqCreate = 104;        // create an AI aircraft
inline constexpr std::uint32_t kReqRemove = 105;        // remove an AI object
inline constexpr std::uint32_t kReqUserTitle = 106;     // definition 407
inline constexpr std::uint32_t kReqUserModel = 107;     // definition 408
inline constexpr std::uint32_t kReqGroundAir = 108;     // definition 409, every second
inline constexpr std::uint32_t kReqUserPosition = 109;  // definition 403
inline constexpr std::uint32_t kReqFlightPlan = 110;
inline constexpr std::uint32_t kReqHelicoptersInRange = 111;  // helicopters within range, definition 404

// Data definitions.
inline constexpr std::uint32_t kDefLevers = 401;        // spoilers and two throttles, written
inline constexpr std::uint32_t kDefPosition = 402;      // position and attitude of an AI object, written
inline constexpr std::uint32_t kDefUserPosition = 403;  // the user block
inline constexpr std::uint32_t kDefInRange = 404;       // ground data and callsign of an aircraft in range
inline constexpr std::uint32_t kDefStaticData = 405;    // "Static CG to Ground", "Static Pitch"
inline constexpr std::uint32_t kDefUserTitle = 407;
inline constexpr std::uint32_t kDefUserModel = 408;
inline constexpr std::uint32_t kDefGroundAir = 409;

// System events.
inline constexpr std::uint32_t kEvSim = 201;
inline constexpr std::uint32_t kEvObjectAdded = 202;
inline constexpr std::uint32_t kEvObjectRemoved = 203;
inline constexpr std::uint32_t kEvFrame = 204;
inline constexpr std::uint32_t kEvFlightLoaded = 205;
// "Pause_EX1": "Sim" stays 1 in a pause of the flight, so pauses are told by their own event.
inline constexpr std::uint32_t kEvPause = 223;

// Client events.
inline constexpr std::uint32_t kEvBeaconLights = 206;
inline constexpr std::uint32_t kEvNavLights = 207;
inline constexpr std::uint32_t kEvTaxiLights = 208;
inline constexpr std::uint32_t kEvStrobes = 209;
inline constexpr std::uint32_t kEvLandingLights = 210;
inline constexpr std::uint32_t kEvCabinLights = 211;
inline constexpr std::uint32_t kEvLogoLights = 212;
inline constexpr std::uint32_t kEvAllLightsToggle = 213;
inline constexpr std::uint32_t kEvFreezeLatLon = 214;
inline constexpr std::uint32_t kEvFreezeAltitude = 215;
inline constexpr std::uint32_t kEvFreezeAttitude = 216;
inline constexpr std::uint32_t kEvFlaps = 217;
inline constexpr std::uint32_t kEvSpoilers = 218;
inline constexpr std::uint32_t kEvGear = 219;
inline constexpr std::uint32_t kEvEngineStart = 220;
inline constexpr std::uint32_t kEvEngineShutdown = 221;
inline constexpr std::uint32_t kEvThrottle = 222;

inline constexpr std::uint32_t kGroupAiEvents = 301;

// Object types of the simulator as its records carry them.
inline constexpr std::uint32_t kObjectTypeAircraft = 2;
inline constexpr std::uint32_t kObjectTypeHelicopter = 3;

// The largest radius the simulator takes for objects by type; beyond it the request fails.
inline constexpr std::uint32_t kMaxRadiusMeters = 200000;

}  // namespace orv
