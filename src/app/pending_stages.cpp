#include "app/pending_stages.h"

namespace orv {

bool lf_checkVersionsAndDownload() { return true; }
bool lf_readAirportCatalogue() { return true; }
bool lf_detectInstallPath() { return true; }
void lf_lookUpDestination() {}

void lf_scanLiveries() {}
void lf_processScannedLiveries() {}
void lf_scanAirports() {}
void lf_clearNoMatch() {}
void lf_writeNoMatchList() {}
void gf_writeMatchingSummary() {}
void lf_clearLiveryCache() {}

void lf_startSimClient() {}
void lf_stopSimClient() {}
void lf_discardPendingPositions() {}
void gf_createFlightPlanFolder() {}
void gf_removeFlightPlanFolder() {}

void lf_openRtServer(const char*) {}
void waitForClient() {}
void lf_sendPosition() {}
void lf_sendSimTime() {}
void lf_closeRt() {}
void lf_startQnhReader() {}
void lf_startTrafficReader(bool) {}
void lf_stopReaders() {}
void lf_feedStatus() {}
bool lf_feedDataLost() { return false; }
void lf_clearFeedPendingData() {}

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

void lf_fillCallsignList() {}

}  // namespace orv
