// Stand-ins for the simulator link's commands until it lands: each command goes where the
// link would take it from, so that the engine's own tests see what it asked for.
#include <mutex>

#include "engine/engine_requests.h"
#include "engine/engine_tables.h"

namespace orv {

namespace {
void queueEvent(std::uint32_t objectid, std::uint32_t id, std::uint32_t value) {
  std::lock_guard lock(gSimMutex);
  gEventOut.push_back({objectid, id, value});
}
}  // namespace

void simStartEngines(std::uint32_t objectid) { queueEvent(objectid, 220, 0); }
void simStopEngines(std::uint32_t objectid) { queueEvent(objectid, 221, 0); }
void simSetLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes, bool logo,
                  bool cabin) {
  queueEvent(objectid, 207, nav);
  queueEvent(objectid, 206, beacon);
  queueEvent(objectid, 210, landing);
  queueEvent(objectid, 208, taxi);
  queueEvent(objectid, 209, strobes);
  queueEvent(objectid, 212, logo);
  queueEvent(objectid, 211, cabin);
}
void simToggleAllLights(std::uint32_t objectid) { queueEvent(objectid, 213, 0); }
void gf_setFlaps(AcRecord& ac, std::int32_t index) { ac.flapsIdx = index; }
void gf_setThrottle(AcRecord& ac, std::int32_t index) { ac.throttleIdx = index; }
void gf_setSpoilers(AcRecord&, bool) {}
void gf_setGear(AcRecord&, bool) {}
void simQueueCreate(const AddRequest&) {}
void simQueueRemove(std::uint32_t) {}
void gf_setFlightPlan(LiveAc&) {}
void gf_removeFlightPlan(LiveAc&) {}
void gf_reportCreateFailed(const AcRecord&) {}
void lf_requestAircraftInRange() {}
void lf_requestStaticData(std::uint32_t) {}
void lf_refreshUserSnapshot() {}

}  // namespace orv
