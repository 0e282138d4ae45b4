#pragma once
// What RealTraffic is told over the link: where the user is (Qs121) and, for its professional
// edition, the simulator's time (Qs123). A failed position send is how a lost link is noticed.
#include <cstdint>
#include <string>

#include "simlink/user_aircraft.h"

namespace orv {

// "Qs121=..." with pitch (turned, so that nose up is positive) and bank in radians × 100000,
// true heading in radians, indicated altitude and ground speed × 1000, latitude and longitude
// in radians.
std::string gf_positionMessage(const UserBlock& user);
// "Qs123=..." with the simulator's time in milliseconds since 1970.
std::string gf_simTimeMessage(std::int64_t seconds);

// The position step: sends Qs121, or waits in accept for RealTraffic to come back. When the
// link is found lost, every live aircraft goes, once.
void lf_sendPosition();
// Qs123, only while connected and for a time of at least one second.
void lf_sendSimTime(std::int64_t seconds);

}  // namespace orv
