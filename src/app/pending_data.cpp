// Stand-ins until their subsystem lands: reference data, airport catalogue, versions, install path.
// Each does nothing and returns what lets the run go on.
#include "app/pending_stages.h"

namespace orv {

bool lf_checkVersionsAndDownload() { return true; }
bool lf_readAirportCatalogue() { return true; }
bool lf_detectInstallPath() { return true; }
void lf_lookUpDestination() {}

}  // namespace orv
