#pragma once
// The engine's side of what the simulator reports: created, refused and removed objects,
// their ground and static data, and the settling of new objects before they move.
#include <cstdint>
#include <vector>

#include "engine/live_aircraft.h"

namespace orv {

// Ticks during which a new object gets no position, and the counts of its light toggles.
inline constexpr int kSettleTicks = 200;

// Handles these notices in order, then steps the settling objects.
void lf_handleNotices(const std::vector<SimNotice>& notices);
void lf_onLiveCreated(LiveAc& ac, const SimNotice& notice);
void lf_onGroundAtCreation(LiveAc& ac);
void lf_onObjectRemoved(std::uint32_t objectid);
// "Static CG to Ground" in feet and "Static Pitch" in radians, as the simulator reports them.
void lf_onStaticData(AcRecord& ac, double cg, double pitch);
void lf_onCreateFailed(std::uint32_t hexid);

}  // namespace orv
