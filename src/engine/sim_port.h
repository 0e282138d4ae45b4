#pragma once
// What the engine asks of the simulator. The simulator link queues each command and carries it
// out at the next simulator frame; the engine never waits for the simulator. The program binds
// the simulator link's port; tests bind their own. Until one is bound, nothing is asked.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

class SimPort {
 public:
  virtual ~SimPort() = default;

  virtual void startEngines(std::uint32_t objectid) = 0;
  virtual void stopEngines(std::uint32_t objectid) = 0;
  virtual void setLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes,
                         bool logo, bool cabin) = 0;
  virtual void toggleAllLights(std::uint32_t objectid) = 0;
  // The levers keep their index in the record; an unchanged index sends nothing.
  virtual void setFlaps(AcRecord& ac, std::int32_t index) = 0;
  virtual void setThrottle(AcRecord& ac, std::int32_t index) = 0;
  virtual void setSpoilers(AcRecord& ac, bool on) = 0;
  virtual void setGear(AcRecord& ac, bool down) = 0;
  // Spoilers handle and both throttle levers in percent (-100 is full reverse), written at once.
  virtual void setLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2) = 0;
  virtual void queueCreate(const AddRequest& request) = 0;
  virtual void queueRemove(std::uint32_t objectid) = 0;
  virtual void setFlightPlan(LiveAc& ac) = 0;
  virtual void removeFlightPlan(LiveAc& ac) = 0;
  // A creation the simulator refused; throws error 81 at the 20th refused title.
  virtual void reportCreateFailed(const AcRecord& ac) = 0;
  // The fixed-rate requests of the engine step.
  virtual void requestAircraftInRange() = 0;
  virtual void requestStaticData(std::uint32_t objectid) = 0;
  virtual void refreshUserSnapshot() = 0;
};

// The bound port, or one that does nothing.
SimPort& gf_sim();
// Binds a port (not owned); nullptr unbinds. Done before the run thread steps the engine.
void gf_bindSim(SimPort* port);

}  // namespace orv
