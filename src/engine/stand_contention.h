#pragma once
// Stand contention: live aircraft compete for stands with the user, with each other and with
// static aircraft.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

// For one entry of the route queue: finds the flight's second callsign in the learned options.
void lf_lookUpFlight(std::uint32_t hexid);
// For one entry of the route queue: removes the static aircraft that stands for this live one.
void lf_dropStaticTwin(std::uint32_t hexid);
// Removes live aircraft that come too close to the user on the ground.
void lf_collisionUserGnd();
// Removes live aircraft that come too close to the user in the air.
void lf_collisionUserAir();
// Removes a static aircraft that a live one moving on the ground comes too close to.
void lf_collisionLiveParked();
// Removes the live aircraft with this callsign from the simulator.
void lf_removeLiveByCallsign(const char* callsign);
// Sweeps away static aircraft whose live twin is in the simulator.
void lf_removeStaticTwinOfLive();
// Keeps the stand reserved for the user free of static and live aircraft.
void lf_removeFromReservedStand();
// The stand no longer holds a live aircraft.
void lf_clearLiveAtStand(std::int32_t sid);
// A live aircraft parks at its stand: the static list entry and a static aircraft on that
// stand give way.
void lf_onLiveParksAtStand(LiveAc& ac);

}  // namespace orv
