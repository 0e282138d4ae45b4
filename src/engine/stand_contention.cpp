// Not built yet: no aircraft contends for a stand, so none is removed and no flight looked up.
#include "engine/stand_contention.h"

namespace orv {

void lf_lookUpFlight(std::uint32_t) {}
void lf_dropStaticTwin(std::uint32_t) {}
void lf_collisionUserGnd() {}
void lf_collisionUserAir() {}
void lf_collisionLiveParked() {}
void lf_removeLiveByCallsign(const char*) {}
void lf_removeStaticTwinOfLive() {}
void lf_removeFromReservedStand() {}

void lf_clearLiveAtStand(std::int32_t) {}
void lf_onLiveParksAtStand(LiveAc&) {}

std::optional<SpawnStand> lf_standAtSpawn(LiveAc&) { return std::nullopt; }
void try2Park(LiveAc&, bool) {}
void lf_removeGhostOf(std::string_view) {}
bool lf_hasGhostOwner(std::string_view) { return false; }
bool lf_insideUserAirEnvelope(const LiveAc&, LatLon) { return false; }

}  // namespace orv
