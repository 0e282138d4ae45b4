#include "engine/arrival.h"

namespace orv {

void lf_parkedConfig(AcRecord&) {}
bool checkExtendingSituations(LiveAc&, Sample&) { return true; }
void lf_arriveAtStand(LiveAc&) {}
// The height above ground is taken, so that the approach schedule sees it; the rest of the
// ground data serves the landing.
void lf_onGroundData(LiveAc& ac, bool, double, double agl) { ac.agl = agl; }

}  // namespace orv
