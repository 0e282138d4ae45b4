#pragma once
// From the prepared data to flowing traffic: simulator, user aircraft, RealTraffic, readers.
#include <chrono>

namespace orv {

// False when a stop flag was found at one of its checks.
bool lf_run();
// Waits for a running flight and a known user position. False on a stop flag.
bool lf_waitForUserAircraft();
// Sleeps in slices of at most 100 ms; false as soon as a stop flag is set.
bool lf_pause(std::chrono::milliseconds total);
// The feed side learns where the user is: its range test and the RealTraffic link use it.
void lf_copyUserPositionToFeed();

}  // namespace orv
