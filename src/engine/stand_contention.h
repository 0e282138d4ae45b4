#pragma once
// Stand contention: live aircraft compete for stands with the user, with each other and with
// static aircraft.
#include <cstdint>
#include <optional>
#include <string_view>

#include "engine/geodesy.h"
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

// The stand an aircraft that is spawned on the ground takes: its number in the stand table,
// position, heading in radians and cargo mark.
struct SpawnStand {
  std::int32_t sid = 0;
  double lat = 0, lon = 0, heading = 0;
  std::uint8_t cargo = 0;
};
std::optional<SpawnStand> lf_standAtSpawn(LiveAc& ac);
// An aircraft at the end of its taxi looks for a stand within 20 m of the end of its stream
// (55 m when `wide`), and drives onto it.
void try2Park(LiveAc& ac, bool wide);
// A plain callsign reaches the simulator: the ghost of it (callsign with a trailing `_`) goes.
void lf_removeGhostOf(std::string_view cs);
// True when the plain callsign that this ghost stands for is live.
bool lf_hasGhostOwner(std::string_view cs);
// True when an aircraft at `pos` lies inside the wide envelope around the user in the air.
bool lf_insideUserAirEnvelope(const LiveAc& ac, LatLon pos);

}  // namespace orv
