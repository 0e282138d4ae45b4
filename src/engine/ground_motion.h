#pragma once
// Motion on the ground: the timing and steps of ground legs, and the take-off roll. Until it
// is built, a ground leg keeps its reported due time and is driven straight.
#include "engine/live_aircraft.h"

namespace orv {
struct Stand;
}

namespace orv {

// Once per leg on the ground: the due time of stream[1].
void nextPosGround(LiveAc& ac);
// Once per leg on the ground: the steps of attitude and heading.
void lf_groundStep(LiveAc& ac);
// A leg of a rotorcraft towards a stopped sample, timed as on the ground.
void lf_timeGroundLeg(LiveAc& ac);
// The reports show a take-off: the take-off configuration and the roll.
void lf_prepareTakeOff(LiveAc& ac);
// The last legs onto a stand: to its position at taxi speed, then stopped there.
void drive2Stand(LiveAc& ac, const Stand& stand);

}  // namespace orv
