#pragma once
// Where the user aircraft is: the position block as the simulator sends it, the run thread's
// copy of it, the jump test that tells a new flight, and the simulator's own clock.
#include <atomic>
#include <cstdint>

#include "engine/geodesy.h"
#include "engine/user_snapshot.h"

namespace orv {

// The last position block, written by the SimClient thread under gSimMutex.
inline UserBlock gUserData;
// The position of the block before; the jump test compares with it. SimClient thread only.
inline LatLon gLastUserPos;
// The simulator's UTC time at the last position block, in seconds since 1970; kept only while
// RealTraffic runs on its own clock.
inline std::atomic<std::int64_t> gv_simEpoch{0};

// A jump of more than this between two position blocks is a new flight.
inline constexpr double kTeleportNm = 10.0;

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
