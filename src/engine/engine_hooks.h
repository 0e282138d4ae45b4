#pragma once
// What the engine step asks of subsystems that stand above it and that it must not name.
#include <cstdint>

#include "foundation/hook.h"

namespace orv {

// The position message of the feed link, every 20 ticks.
inline constinit Hook<> gv_feedPositionStep;
// The next placement of static parking, on creation turns that no live aircraft takes.
inline constinit Hook<> gv_placeNextStatic;
// The object that the window follows is gone.
inline constinit Hook<std::uint32_t> gv_stopFollowing;

}  // namespace orv
