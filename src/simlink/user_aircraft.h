#pragma once
// Where the user aircraft is: the position block as the simulator sends it, the run thread's
// copy of it, the jump test that tells a new flight, and the simulator's own clock.
#include <atomic>
#include <cstdint>

#include "engine/geodesy.h"

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

// The last position block, written by the SimClient thread under gSimMutex.
inline UserBlock gUserData;
// The run thread's copy: every user position, altitude and speed of the engine comes from it.
inline UserBlock gUserSnapshot;
// The position of the block before; the jump test compares with it. SimClient thread only.
inline LatLon gLastUserPos;
// The simulator's UTC time at the last position block, in seconds since 1970; kept only while
// RealTraffic runs on its own clock.
inline std::atomic<std::int64_t> gv_simEpoch{0};

// A jump of more than this between two position blocks is a new flight.
inline constexpr double kTeleportNm = 10.0;

// True when the position is known at all: away from 0,0.
inline bool gf_userPositionKnown(double lat, double lon) {
  return lat > 0.0001 || lat < -0.0001 || lon > 0.0001 || lon < -0.0001;
}
inline bool gf_userPositionKnown(const UserBlock& b) { return gf_userPositionKnown(b.lat, b.lon); }

// Asks for the user position and returns what the previous request brought. Nothing is
// asked once a request has failed in this run.
UserBlock lf_requestUserPosition();
// Run thread, every 100 ticks: the snapshot takes what the last request brought.
void lf_refreshUserSnapshot();
// Asks once for the title and the model; the replies go to user_model.
void lf_requestUserTitleAndModel();
// Starts the per-second ground/air block; false (logged, run ended) when refused.
bool lf_requestGroundAirData();

// Replies, on the SimClient thread.
void lf_onUserPosition(const UserBlock& block, std::uint32_t objectId);
void lf_onUserGroundAir(std::int64_t onGround);

// The block's UTC date and time in seconds since 1 January 1970.
std::int64_t gf_simEpochOf(const UserBlock& block);

// At the reset of a run.
void gf_clearUserAircraft();

}  // namespace orv
