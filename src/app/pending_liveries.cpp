// Stand-ins until their subsystem lands: liveries and add-on airport scans, livery matching.
// Each does nothing and returns what lets the run go on.
#include "app/pending_stages.h"

namespace orv {

void lf_scanLiveries() {}
void lf_processScannedLiveries() {}
void lf_scanAirports() {}
void lf_clearNoMatch() {}
void lf_writeNoMatchList() {}
void gf_writeMatchingSummary() {}
void lf_clearLiveryCache() {}

}  // namespace orv
