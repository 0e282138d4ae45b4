#pragma once
// The events and lever writes by which the engine lights, flaps and drives its aircraft.
// Each is queued in gEventOut; the SimClient thread sends it at the next frame.
#include <array>
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

// FLAPS_SET by flaps index 0 to 4; THROTTLE_SET by throttle index 0 to 4.
inline constexpr std::array<std::uint32_t, 5> kFlapsValues{0, 3072, 10240, 16383, 0};
inline constexpr std::array<std::uint32_t, 5> kThrottleValues{0, 4914, 8191, 11468, 16383};
inline constexpr std::uint32_t kSpoilersOnValue = 16383;

void simStartEngines(std::uint32_t objectid);
void simStopEngines(std::uint32_t objectid);
void simSetLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes, bool logo,
                  bool cabin);
void simToggleAllLights(std::uint32_t objectid);
// A lever's state is its index in the record: an unchanged index sends nothing.
void gf_setFlaps(AcRecord& ac, std::int32_t index);
void gf_setThrottle(AcRecord& ac, std::int32_t index);
void gf_setSpoilers(AcRecord& ac, bool on);
void gf_setGear(AcRecord& ac, bool down);
void simNavLights(std::uint32_t objectid, bool on);
void simCabinLights(std::uint32_t objectid, bool on);
// Spoilers and both throttle levers in percent, written at once (not queued).
void simSetLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2);

}  // namespace orv
