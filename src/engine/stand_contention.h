#pragma once
// Stand contention: live aircraft compete for stands with the user, with each other and with
// static aircraft. A loser is always removed from the simulator, never moved.
#include <cstdint>
#include <optional>
#include <string_view>

#include "engine/geodesy.h"
#include "engine/live_aircraft.h"
#include "foundation/day_and_slot.h"

namespace orv {
struct Stand;
}

namespace orv {

// Distances of the stand rules, in nautical miles.
inline constexpr double kSpareWidthNm = 0.0009719222462203025;    // 1.8 m an aircraft may stick out
inline constexpr double kOneMetreNm = 0.0005399568034557236;      // 1 m
inline constexpr double kCloseToStandNm = 0.010799136069114472;   // 20 m
inline constexpr double kStreamEndNm = 0.018898488120950324;      // 35 m
inline constexpr double kStandReachNm = 0.029697624190064796;     // 55 m
inline constexpr double kWideReachNm = 0.0458963282937365;        // 85 m

// --- Stand search ---

// True when the stand's type, or for type 0 its radius, takes the aircraft.
bool lf_standFits(const Stand& stand, const AcRecord& ac);
// The stand for an aircraft at `pos` within `limit` nm; with `wide`, failing that, a stand up to
// 85 m away that the learned options name for this aircraft. nullptr for none.
Stand* lf_closestStand(LatLon pos, AcRecord& ac, double limit, bool wide);
// True when the stand is the user's: the reserved one, or the one the user stands on.
bool lf_isUserStand(const Stand& stand);

// The stand an aircraft that is spawned on the ground takes: its number in the stand table,
// position, heading in radians and cargo mark.
struct SpawnStand {
  std::int32_t sid = 0;
  double lat = 0, lon = 0, heading = 0;
  std::uint8_t cargo = 0;
};
// For an aircraft that the feed reports standing at spawn; none when it stands at no stand or
// (with `erase` set) when the stand's occupant keeps it.
std::optional<SpawnStand> lf_standAtSpawn(LiveAc& ac);
// An aircraft at the end of its taxi looks for a stand within 20 m of the end of its stream
// (55 m when `wide`), and drives onto it.
void try2Park(LiveAc& ac, bool wide);

// --- Occupants and newcomers ---

// True when the newcomer `cs`, reported at stand sid at spawn, may have it.
bool lf_standFree(std::int32_t sid, std::string_view cs);
// True unless a live aircraft standing at stand n would touch `ac` at `stand`.
bool lf_adjacentFree(std::uint32_t n, const AcRecord& ac, const Stand& stand);
// Removes the live aircraft standing at stand n if `ac` parking at `stand` would touch it.
void lf_clearAdjacent(std::uint32_t n, const AcRecord& ac, const Stand& stand);
// Static aircraft on the stand and touching it from its neighbours give way to `ac`.
void lf_staticsMakeWay(const AcRecord& ac, const Stand& stand);
// The stand no longer holds a live aircraft.
void lf_clearLiveAtStand(std::int32_t sid);
// A live aircraft is created at its stand: a static aircraft still standing there gives way.
void lf_onLiveParksAtStand(LiveAc& ac);
// Keeps the stand of this id free for the user: one static aircraft goes, or else one live
// aircraft standing there.
void lf_keepStandFree(std::string_view id);

// --- Ghosts: `ABC123_` is the ghost of its owner `ABC123` ---

// A plain callsign reaches the simulator: the ghost of it goes, and may not come back.
void lf_removeGhostOf(std::string_view cs);
// True when the owner of this ghost callsign is live.
bool lf_hasGhostOwner(std::string_view cs);

// --- Collisions with the user and between live and static aircraft ---

// Index 0: the user in the air; 1: the wider envelope that holds a spawn back.
inline constexpr int kEnvelopeUserAir = 0;
inline constexpr int kEnvelopeSpawnHold = 1;
// True when an aircraft at `pos`, `alt` on `heading` lies inside the envelope ahead of the user.
bool lf_insideEnvelope(LatLon pos, double alt, double heading, int index);
// The envelope test at the aircraft's own position; inside, the aircraft is removed.
bool lf_collisionTest(LiveAc& ac, int index);
// The wider envelope for a spawn at `pos`, which holds it back.
bool lf_insideUserAirEnvelope(const LiveAc& ac, LatLon pos);
// Once a second, whichever of the two fits the user's state: at most one aircraft goes.
void lf_collisionUserAir();
void lf_collisionUserGnd();
// Once a second: a static aircraft in the way of a live one moving on the ground goes.
void lf_collisionLiveParked();
// At the reset of the engine: no user position checked yet.
void lf_resetCollisionState();

// --- Static twins of live aircraft ---

// Removes one static aircraft whose live twin is on the ground in the simulator.
void lf_sweepStaticTwins();
// For one route queue entry: the flight's second callsign from the learned options.
void lf_lookUpFlight(WeekSlot slot, LiveAc& ac);
// For one route queue entry: the static aircraft that stands for this live one goes.
void lf_dropStaticTwin(LiveAc& ac);

}  // namespace orv
