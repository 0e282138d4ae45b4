#pragma once
// The user aircraft as the engine reads it: the position block as the simulator sends it and the
// run thread's copy of it. The simulator link fills both; every user position, altitude and
// speed of the engine comes from the copy.
#include <atomic>
#include <cstdint>

namespace orv {

// The data block of the user position request, field by field: 14 fields of 8 bytes.
struct UserBlock {
  double lat = 0, lon = 0;                  // degrees
  double pitch = 0, bank = 0, heading = 0;  // radians, heading true
  double alt = 0;                           // feet
  double indicatedAlt = 0;
  double agl = 0;
  double groundVelocity = 0;  // knots
  std::int64_t zuluTime = 0;  // seconds of the day
  std::int64_t zuluDayOfYear = 0;
  std::int64_t zuluYear = 0;
  std::int64_t lightStates = 0;
  double standardAtmTemperature = 0;  // Rankine
};
static_assert(sizeof(UserBlock) == 112, "laid out as the simulator sends it");

// The run thread's copy: every user position, altitude and speed of the engine comes from it.
inline UserBlock gUserSnapshot;
// Written by the SimClient thread at each ground/air data block.
inline std::atomic<bool> gv_userOnGround{false};
// Half wing span of the user aircraft in nautical miles; 0 until the model reply has come.
// Written by the SimClient thread, read by the collision steps.
inline std::atomic<double> gv_userHalfWingSpan{0.0};

// True when the position is known at all: away from 0,0.
inline bool gf_userPositionKnown(double lat, double lon) {
  return lat > 0.0001 || lat < -0.0001 || lon > 0.0001 || lon < -0.0001;
}
inline bool gf_userPositionKnown(const UserBlock& b) { return gf_userPositionKnown(b.lat, b.lon); }

}  // namespace orv
