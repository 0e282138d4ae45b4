#pragma once
// What the engine step asks of subsystems that stand above it and that it must not name.
#include <cstdint>
#include <string>

#include "foundation/hook.h"

namespace orv {
struct LiveAc;
}

namespace orv {

// The position message of the feed link, every 20 ticks.
inline constinit Hook<> gv_feedPositionStep;
// The next placement of static parking, on creation turns that no live aircraft takes.
inline constinit Hook<> gv_placeNextStatic;
// The object that the window follows is gone.
inline constinit Hook<std::uint32_t> gv_stopFollowing;
// Learning of stand use, when a live aircraft is spawned at a stand or changes its identity
// there: the cargo mark of the stand, and the stand option of the aircraft (1: it arrived
// now, 0: told again).
inline constinit Hook<LiveAc&> gv_learnStandCargo;
inline constinit Hook<std::int32_t, LiveAc&, int> gv_addRealStandOption;
// Max park is checked again: one more live aircraft stands at the park airport.
inline constinit Hook<int> gv_maxParkCheck;
// The id of the stand that the user stands on at (lat, lon) into the text, left empty when the
// user stands at none; airport parking answers it.
inline constinit Hook<double, double, std::string&> gv_userStandAt;
// A stand's radius was learned from a live aircraft: one more learned update to save and show.
inline constinit Hook<> gv_countLearnedUpdate;

}  // namespace orv
