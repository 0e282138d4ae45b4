// Stand-ins until their subsystem lands: parking, stands, collisions.
// Each does nothing and returns what lets the run go on.
#include "app/pending_stages.h"

namespace orv {

void lf_readMyParkAirports() {}
std::string lf_rereadMyParkAirports() { return {}; }
void computeAutoRange() {}
void lf_firstParking(bool) {}
void lf_periodicParking() {}
void lf_removeStaticTwinOfLive() {}
void lf_removeFromReservedStand() {}
void lf_adjustParking() {}
void lf_removeAllStatic() {}
bool lf_parkingPossible() { return false; }
void lf_announceStaticUpdate() {}
void lf_clearParkAirport() {}
void lf_lookUpFlight(std::uint32_t) {}
void lf_dropStaticTwin(std::uint32_t) {}
void lf_collisionUserGnd() {}
void lf_collisionUserAir() {}
void lf_collisionLiveParked() {}
void lf_removeLiveByCallsign(const char*) {}

}  // namespace orv
