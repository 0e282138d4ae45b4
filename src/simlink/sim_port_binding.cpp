#include "simlink/sim_port_binding.h"

#include "engine/sim_port.h"
#include "simlink/create_failures.h"
#include "simlink/flight_plans.h"
#include "simlink/object_requests.h"
#include "simlink/sim_events.h"
#include "simlink/sim_queues.h"
#include "simlink/user_aircraft.h"

namespace orv {
namespace {

class SimLinkPort final : public SimPort {
 public:
  void startEngines(std::uint32_t objectid) override { simStartEngines(objectid); }
  void stopEngines(std::uint32_t objectid) override { simStopEngines(objectid); }
  void setLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes, bool logo,
                 bool cabin) override {
    simSetLights(objectid, nav, beacon, landing, taxi, strobes, logo, cabin);
  }
  void toggleAllLights(std::uint32_t objectid) override { simToggleAllLights(objectid); }
  void setFlaps(AcRecord& ac, std::int32_t index) override { gf_setFlaps(ac, index); }
  void setThrottle(AcRecord& ac, std::int32_t index) override { gf_setThrottle(ac, index); }
  void setSpoilers(AcRecord& ac, bool on) override { gf_setSpoilers(ac, on); }
  void setGear(AcRecord& ac, bool down) override { gf_setGear(ac, down); }
  void setLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2) override {
    simSetLevers(objectid, spoilers, throttle1, throttle2);
  }
  void queueCreate(const AddRequest& request) override { simQueueCreate(request); }
  void queueRemove(std::uint32_t objectid) override { simQueueRemove(objectid); }
  void setFlightPlan(LiveAc& ac) override { gf_setFlightPlan(ac); }
  void removeFlightPlan(LiveAc& ac) override { gf_removeFlightPlan(ac); }
  void reportCreateFailed(const AcRecord& ac) override { gf_reportCreateFailed(ac); }
  void requestAircraftInRange() override { lf_requestAircraftInRange(); }
  void requestStaticData(std::uint32_t objectid) override { lf_requestStaticData(objectid); }
  void refreshUserSnapshot() override { lf_refreshUserSnapshot(); }
};

SimLinkPort gSimLinkPort;

}  // namespace

void gf_bindSimLink() { gf_bindSim(&gSimLinkPort); }

}  // namespace orv
