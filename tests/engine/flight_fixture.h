#pragma once
// Whole flights through the engine step on a stepped clock: reports go in as the feed would
// deliver them (due 3000 ticks later), a port stands for the simulator (it creates what it is
// asked, at once, and keeps the levers' indexes as the real link does), and the height above
// ground is that over flat terrain at sea level.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/live_aircraft.h"
#include "engine/sim_port.h"
#include "test_support.h"

namespace orv::test {

struct PortCall {
  std::int32_t tick = 0;
  std::string what;
  double alt = 0;  // the aircraft's altitude when it was asked
};

class FlightPort final : public SimPort {
 public:
  std::vector<PortCall> calls;
  std::vector<AddRequest> creations;
  std::vector<std::uint32_t> removals;

  void startEngines(std::uint32_t) override {}
  void stopEngines(std::uint32_t) override {}
  void setLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes, bool logo,
                 bool cabin) override;
  void toggleAllLights(std::uint32_t) override {}
  void setFlaps(AcRecord& ac, std::int32_t index) override;
  void setThrottle(AcRecord& ac, std::int32_t index) override;
  void setSpoilers(AcRecord& ac, bool on) override;
  void setGear(AcRecord&, bool) override {}
  void setLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2) override;
  void queueCreate(const AddRequest& request) override;
  void queueRemove(std::uint32_t objectid) override;
  void setFlightPlan(LiveAc&) override {}
  void removeFlightPlan(LiveAc&) override {}
  void reportCreateFailed(const AcRecord&) override {}
  void requestAircraftInRange() override;
  void requestStaticData(std::uint32_t) override {}
  void refreshUserSnapshot() override {}

 private:
  std::uint32_t nextObject_ = 100;
};

struct Report {
  double t = 0;  // seconds of the feed's clock; delivered at tick t × 100
  double lat = 0, lon = 0, alt = 0, gs = 0, track = 0, vs = 0;
  std::optional<double> roll;  // radians, the simulator's sign
};

class EngineFlight : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A report of one aircraft, taken by the engine now and due in 30 seconds.
  void deliver(std::uint32_t hexid, const std::string& cs, const std::string& type, const Report& r,
               const std::string& reg = {});
  // Steps the engine, delivering each report at its time; `each` runs after every tick.
  void fly(std::uint32_t hexid, const std::string& cs, const std::string& type, const std::vector<Report>& reports,
           std::int32_t untilTick, const std::function<void()>& each = {});
  void steps(int n);
  const LiveAc* record(std::uint32_t hexid) const;

  FlightPort port;
  LogCapture log;
};

// Reports along a great circle from (lat, lon) on `track` at `gs`, every `every` seconds.
std::vector<Report> straightReports(double lat, double lon, double alt, double gs, double trackDeg, double every,
                                    int count, double vs = 0);

}  // namespace orv::test
