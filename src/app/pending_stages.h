#pragma once
// The stages of a run that other subsystems carry out. Those not built yet have stand-ins in
// pending_<subsystem>.cpp that do nothing and return what lets the run go on; a subsystem
// that lands defines its stages itself and its stand-in file goes.
#include <cstdint>
#include <string>

namespace orv {

// Reference data, airports, versions.
bool lf_checkVersionsAndDownload();
bool lf_readAirportCatalogue();
bool lf_detectInstallPath();
void lf_lookUpDestination();

// Liveries and add-on airports.
void lf_scanLiveries();
void lf_processScannedLiveries();
void lf_scanAirports();
void lf_clearNoMatch();
void lf_writeNoMatchList();
void gf_writeMatchingSummary();
void lf_clearLiveryCache();

// Parking and stands.
void lf_readMyParkAirports();
// What changed in the list, for the message area; empty when nothing did.
std::string lf_rereadMyParkAirports();
void computeAutoRange();
void lf_firstParking(bool atStart);
void lf_periodicParking();
void lf_removeStaticTwinOfLive();
void lf_removeFromReservedStand();
void lf_adjustParking();
void lf_removeAllStatic();
bool lf_parkingPossible();
void lf_announceStaticUpdate();
void lf_clearParkAirport();
void lf_lookUpFlight(std::uint32_t hexid);
void lf_dropStaticTwin(std::uint32_t hexid);
void lf_collisionUserGnd();
void lf_collisionUserAir();
void lf_collisionLiveParked();
void lf_removeLiveByCallsign(const char* callsign);

// Window lists.
void lf_fillCallsignList();

}  // namespace orv
