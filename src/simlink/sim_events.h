#pragma once
// The events and lever writes by which the engine lights, flaps and drives its aircraft.
// Each queues under gSimMutex; the SimClient thread sends at the next frame. The engine's
// own declarations are in engine/engine_requests.h; these are the rest.
#include <array>
#include <cstdint>

#include "engine/engine_requests.h"

namespace orv {

// FLAPS_SET by flaps index 0 to 4; THROTTLE_SET by throttle index 0 to 4.
inline constexpr std::array<std::uint32_t, 5> kFlapsValues{0, 3072, 10240, 16383, 0};
inline constexpr std::array<std::uint32_t, 5> kThrottleValues{0, 4914, 8191, 11468, 16383};
inline constexpr std::uint32_t kSpoilersOnValue = 16383;

void simNavLights(std::uint32_t objectid, bool on);
void simCabinLights(std::uint32_t objectid, bool on);
// Spoilers and both throttle levers in percent, written at once (not queued).
void simSetLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2);

}  // namespace orv
