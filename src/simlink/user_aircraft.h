#pragma once
// What the simulator says about the user aircraft: the position block as received, and
// the copy of it that the run thread works with.
#include <cstdint>

namespace orv {

// The data block of the user position request, field by field.
struct UserBlock {
  double lat = 0, lon = 0;  // degrees
  double pitch = 0, bank = 0, heading = 0;  // radians, heading true
  double alt = 0;
  double indicatedAlt = 0;
  double agl = 0;
  double groundVelocity = 0;  // knots
  std::int64_t zuluTime = 0;
  std::int64_t zuluDayOfYear = 0;
  std::int64_t zuluYear = 0;
  std::int64_t lightStates = 0;
  double standardAtmTemperature = 0;  // Rankine
};

// Written by the SimClient thread under gSimMutex.
inline UserBlock gUserData;
// The run thread's copy: every user position, altitude and speed of the engine comes from it.
inline UserBlock gUserSnapshot;

// True when the position is known at all: away from 0,0.
inline bool gf_userPositionKnown(const UserBlock& b) {
  return b.lat > 0.0001 || b.lat < -0.0001 || b.lon > 0.0001 || b.lon < -0.0001;
}

// Asks the simulator for the user position and returns what the previous request brought.
UserBlock lf_requestUserPosition();
void lf_requestUserTitleAndModel();
// Starts the per-second ground/air data request; false when the simulator refused it.
bool lf_requestGroundAirData();

}  // namespace orv
