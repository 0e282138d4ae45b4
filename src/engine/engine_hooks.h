#pragma once
// What the engine step asks of subsystems that stand above it and that it must not name: the
// program binds them before the run thread steps the engine; an unbound hook does nothing.
#include <cstdint>

namespace orv {

// The position message of the feed link, every 20 ticks.
inline void (*gv_feedPositionStep)() = nullptr;
// The next placement of static parking, on creation turns that no live aircraft takes.
inline void (*gv_placeNextStatic)() = nullptr;
// The object that the window follows is gone.
inline void (*gv_stopFollowing)(std::uint32_t objectid) = nullptr;

}  // namespace orv
