#include "engine/sim_port.h"

#include <atomic>

namespace orv {
namespace {

class UnboundPort final : public SimPort {
 public:
  void startEngines(std::uint32_t) override {}
  void stopEngines(std::uint32_t) override {}
  void setLights(std::uint32_t, bool, bool, bool, bool, bool, bool, bool) override {}
  void toggleAllLights(std::uint32_t) override {}
  void setFlaps(AcRecord&, std::int32_t) override {}
  void setThrottle(AcRecord&, std::int32_t) override {}
  void setSpoilers(AcRecord&, bool) override {}
  void setGear(AcRecord&, bool) override {}
  void setLevers(std::uint32_t, double, double, double) override {}
  void queueCreate(const AddRequest&) override {}
  void queueRemove(std::uint32_t) override {}
  void setFlightPlan(LiveAc&) override {}
  void removeFlightPlan(LiveAc&) override {}
  void reportCreateFailed(const AcRecord&) override {}
  void requestAircraftInRange() override {}
  void requestStaticData(std::uint32_t) override {}
  void refreshUserSnapshot() override {}
};

UnboundPort gUnbound;
std::atomic<SimPort*> gBound{nullptr};

}  // namespace

SimPort& gf_sim() {
  SimPort* port = gBound.load(std::memory_order_acquire);
  return port ? *port : gUnbound;
}

void gf_bindSim(SimPort* port) { gBound.store(port, std::memory_order_release); }

}  // namespace orv
