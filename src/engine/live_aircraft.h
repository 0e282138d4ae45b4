#pragma once
// The record of one aircraft that the simulator shows, the samples that drive a live one,
// and the messages between the engine and the other threads. Units: degrees, feet, nautical
// miles, knots, feet per minute, radians for attitude, ticks of 10 ms for time.
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "engine/sample_ring.h"
#include "foundation/day_and_slot.h"
#include "foundation/fixed_code.h"
#include "refdata/ac_code.h"

namespace orv {

inline constexpr double kFeetPerNm = 6076.11549;
inline constexpr double kMetersPerNm = 1852.0;
inline constexpr double kMetersPerDegreeLat = 111132.95;
inline constexpr double kDegreesPerRadian = 57.29577951308232;
inline constexpr double kTwoPi = 2.0 * 3.14159265358979323846;

enum SimState : std::int32_t { kBuffer = 0, kAdding2Sim = 1, kActive = 2, kLiveryRespawn = 3, kRemovingFromSim = 4 };
enum FlightState : std::int32_t {
  kPushingBack = 0,
  kPushedBack = 1,
  kTaxi = 2,
  kTakeOff = 3,
  kFlying = 4,
  kParking = 5,
  kParked = 6,
  kBirth = 7,
};
enum AcClass : std::int32_t { kLight = 0, kBuzjets = 1, kLarge = 2, kHeavy = 3, kHighPerf = 4, kRotorcraft = 5 };

// Log names; an out-of-range value gives "?".
std::string_view gf_simStateName(std::int32_t s);
std::string_view gf_flightStateName(std::int32_t s);
std::string_view gf_acClassName(std::int32_t c);

// An optional number that keeps its own "has a value" byte, as the record lays it out.
struct OptionalDouble {
  double value = 0.0;
  std::uint8_t has = 0;
  void set(double v) { value = v, has = 1; }
  void reset() { value = 0.0, has = 0; }
  explicit operator bool() const { return has != 0; }
};

struct AcIdent {
  AcCode code;
  FixedCode<3> from;
  FixedCode<3> to;
  std::uint8_t routeLooked = 0;
  std::string cs;
  std::string cs1;
  std::string cs2;
  std::string reg;
};

struct Sample {
  double lat = 0, lon = 0;
  double alt = 0;
  double gs = 0;
  double track = 0;
  double vs = 0;
  double tas = 0;
  std::int32_t tick = 0;
  std::uint8_t airborne = 0;
  std::uint8_t stopped = 0;
  std::uint8_t precise = 0;
  OptionalDouble roll;
  OptionalDouble trueHeading;
};

struct TrafficMsg {
  AcIdent ident;
  Sample sample;
  double timestamp = 0;  // seconds of the feed's own clock
  std::uint32_t hexid = 0;
};

// The head shared by static parked aircraft and live aircraft.
struct AcRecord : AcIdent {
  double hwsp = 0;
  double cgHeight = 0;
  double staticPitch = 0;
  double rotatePitch = 0;
  double climbPitch = 0;
  double turnRate = 0;
  double groundTurn = 0;
  double maxClimbStep = 0;
  double taxiSpeed = 0;
  std::uint32_t hexid = 0;
  std::int32_t acClass = kLight;
  std::string_view title;  // a view into the livery catalogue, which outlives every table
  std::uint32_t flareTicks = 0;
  std::uint32_t derotateTicks = 0;
  std::uint32_t rotateTicks = 0;
  std::uint32_t unstickTicks = 0;
  std::uint8_t reverser = 0;
  std::uint32_t objectid = 0;
  double standLat = 0, standLon = 0, standHeading = 0;
  WeekSlot parkedSlot = 0;
  std::int32_t sid = 0;
  std::int32_t simState = kBuffer;
  std::int32_t throttleIdx = 5;
  std::int32_t flapsIdx = 4;
  std::uint8_t standCargo = 0;
  std::uint8_t removeWhenCreated = 0;
  std::uint8_t erase = 0;
  std::uint8_t cancelled = 0;
};

struct LiveAc : AcRecord {
  double lat = 0, lon = 0;
  double pitch = 0, bank = 0, heading = 0;
  double alt = 0;
  double outVs = 0;
  double outTas = 0;
  Ring<Sample> stream;
  double lastTimestamp = 0;
  double checkedLat = 0, checkedLon = 0;
  std::int64_t parkedTime = 0;
  std::int32_t extendCount = 0;
  std::int32_t holdTick = 0;
  std::int32_t flightState = kBirth;
  std::int32_t prevFlightState = kBirth;
  std::uint8_t standConfirmed = 0;
  std::uint8_t onGround = 0;
  std::uint8_t flightPlanSet = 0;
  std::uint8_t holding = 0;
  double stepLat = 0, stepLon = 0;
  double stepPitch = 0, stepBank = 0, stepHeading = 0, stepAlt = 0;
  double vsNow = 0;
  double speedNow = 0;
  double curveLat0 = 0, curveLon0 = 0;
  double curveT0 = std::numeric_limits<double>::quiet_NaN();
  double curveEndN = 0, curveEndE = 0;
  double curveT1 = std::numeric_limits<double>::quiet_NaN();
  double curveMidE = 0, curveMidN = 0;
  double curveT = 0;
  double curveStep = 0;
  double curveAngle = 0;
  Sample pushTail;
  double parkCheckLat = 0, parkCheckLon = 0;
  std::int32_t earlyLimit = 1000;
  std::int32_t lateLimit = 1000;
  std::int32_t stageCount = 1;
  std::uint32_t pushStage = 0;
  std::uint32_t driftCount = 0;
  double targetHeading = 0;
  double agl = 2500.0;
  double heightAtAirport = 0;
  double touchdownHeading = 0;
  double prevPushDist = 900.0;
  double standDistFirst = 0;
  double standDistMax = 0;
  double turnAngle = 0;
  OptionalDouble respawnHeading;
  std::uint8_t noseRight = 0, pushSet = 0;
  OptionalDouble groundElev;
  std::int32_t flareStage = 0;
  std::uint8_t approach = 0;
  std::uint8_t justLanded = 0;
  std::uint8_t towed = 0;
  std::uint8_t cleanConfig = 0;
  std::uint8_t takingOff = 0;
  std::uint8_t cruiseLights = 0;
  std::uint8_t lowLights = 0;
  std::uint8_t derotating = 0;
  std::uint8_t rollout = 0;
  std::uint8_t leavingStand = 0;
  std::uint8_t sharpTurn = 0;
};

// A change of flightState keeps the state before it; setting the same state changes nothing.
inline void gf_setFlightState(LiveAc& ac, std::int32_t state) {
  if (ac.flightState == state) return;
  ac.prevFlightState = ac.flightState;
  ac.flightState = state;
}

// Angles in degrees; the on-ground flag and the air speed are always 0.
struct AddRequest {
  double lat = 0, lon = 0, alt = 0;
  double pitch = 0, bank = 0, heading = 0;
  std::uint32_t onGround = 0;
  std::uint32_t airspeed = 0;
  std::string callsign;
  std::string_view title;
  std::uint32_t hexid = 0;
};

// In the order of the simulator's position data definition.
struct PositionOut {
  double lat = 0, lon = 0, pitch = 0, bank = 0, heading = 0, alt = 0, vs = 0, tas = 0;
  std::uint32_t objectid = 0;
};

struct EventOut {
  std::uint32_t objectid = 0;
  std::uint32_t eventId = 0;
  std::uint32_t value = 0;
};

// What a notice of the simulator client tells the engine; 5 is not used.
enum NoticeKind : std::uint32_t {
  kLiveCreated = 0,
  kParkedCreated = 1,
  kObjectRemoved = 2,
  kGroundData = 3,
  kStaticData = 4,
  kCreateFailed = 6,
};

struct SimNotice {
  std::uint32_t objectid = 0;
  std::uint32_t id = 0;  // a hexid, or the on-ground flag
  NoticeKind kind = kLiveCreated;
  double a = 0;
  double b = 0;
};

}  // namespace orv
