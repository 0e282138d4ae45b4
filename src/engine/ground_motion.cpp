// Not built yet: ground legs keep their reported timing and no take-off roll is planned.
#include "engine/ground_motion.h"

namespace orv {

void nextPosGround(LiveAc&) {}
void lf_groundStep(LiveAc&) {}
void lf_timeGroundLeg(LiveAc&) {}
void lf_prepareTakeOff(LiveAc&) {}
void drive2Stand(LiveAc&, const Stand&) {}

}  // namespace orv
