#pragma once
// What the engine asks of the simulator link and the feed link. The simulator link queues
// each command under gSimMutex and carries it out at the next simulator frame; the engine
// never waits for the simulator.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

void simStartEngines(std::uint32_t objectid);
void simStopEngines(std::uint32_t objectid);
void simSetLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes, bool logo,
                  bool cabin);
void simToggleAllLights(std::uint32_t objectid);
void gf_setFlaps(AcRecord& ac, std::int32_t index);
void gf_setThrottle(AcRecord& ac, std::int32_t index);
void gf_setSpoilers(AcRecord& ac, bool on);
void gf_setGear(AcRecord& ac, bool down);
void simQueueCreate(const AddRequest& request);
void simQueueRemove(std::uint32_t objectid);
void gf_setFlightPlan(LiveAc& ac);
void gf_removeFlightPlan(LiveAc& ac);
// A creation the simulator refused; throws error 81 at the 20th refused title.
void gf_reportCreateFailed(const AcRecord& ac);
// The fixed-rate requests of the engine step.
void lf_requestAircraftInRange();
void lf_requestStaticData(std::uint32_t objectid);
void lf_refreshUserSnapshot();
// The position message of the feed link, set by the run: the engine knows no feed.
inline void (*gv_feedPositionStep)() = nullptr;

}  // namespace orv
