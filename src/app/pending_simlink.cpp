// Stand-ins until their subsystem lands: simulator link.
// Each does nothing and returns what lets the run go on.
#include "app/pending_stages.h"

namespace orv {

void lf_startSimClient() {}
void lf_stopSimClient() {}
void lf_discardPendingPositions() {}
void gf_createFlightPlanFolder() {}
void gf_removeFlightPlanFolder() {}

}  // namespace orv
