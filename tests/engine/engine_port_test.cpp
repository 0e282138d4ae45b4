// The engine step reaches the simulator and parking only through what the program binds: a
// recording port here, without the simulator link.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/engine_hooks.h"
#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/sim_port.h"
#include "test_support.h"

namespace orv {
namespace {

class RecordingPort final : public SimPort {
 public:
  std::vector<std::string> calls;

  void startEngines(std::uint32_t) override { calls.push_back("startEngines"); }
  void stopEngines(std::uint32_t) override { calls.push_back("stopEngines"); }
  void setLights(std::uint32_t, bool, bool, bool, bool, bool, bool, bool) override { calls.push_back("setLights"); }
  void toggleAllLights(std::uint32_t) override { calls.push_back("toggleAllLights"); }
  void setFlaps(AcRecord&, std::int32_t) override { calls.push_back("setFlaps"); }
  void setThrottle(AcRecord&, std::int32_t) override { calls.push_back("setThrottle"); }
  void setSpoilers(AcRecord&, bool) override { calls.push_back("setSpoilers"); }
  void setGear(AcRecord&, bool) override { calls.push_back("setGear"); }
  void setLevers(std::uint32_t, double, double, double) override { calls.push_back("setLevers"); }
  void queueCreate(const AddRequest& r) override { calls.push_back(tick("create " + r.callsign)); }
  void queueRemove(std::uint32_t objectid) override { calls.push_back(tick("remove " + std::to_string(objectid))); }
  void setFlightPlan(LiveAc&) override { calls.push_back("setFlightPlan"); }
  void removeFlightPlan(LiveAc&) override { calls.push_back("removeFlightPlan"); }
  void reportCreateFailed(const AcRecord&) override { calls.push_back("reportCreateFailed"); }
  void requestAircraftInRange() override { ++inRange; }
  void requestStaticData(std::uint32_t) override { calls.push_back("requestStaticData"); }
  void refreshUserSnapshot() override { ++snapshots; }

  int inRange = 0;
  int snapshots = 0;

 private:
  static std::string tick(std::string what) { return what + " @" + std::to_string(gv_tick.load()); }
};

std::vector<int> gPlacements;

class EnginePort : public testing::Test {
 protected:
  void SetUp() override {
    gf_bindSim(&port);
    gPlacements.clear();
    gv_placeNextStatic.set([] { gPlacements.push_back(gv_tick.load()); });
  }
  void TearDown() override {
    gf_bindSim(nullptr);
    gv_placeNextStatic.set(nullptr);
  }
  static AddRequest request(const char* cs) {
    AddRequest r;
    r.callsign = cs;
    return r;
  }
  void steps(int n) {
    for (int i = 0; i < n; ++i) lf_handleAddingStack();
  }
  RecordingPort port;
};

TEST_F(EnginePort, CreationsGoOneEveryFiftyTicksLiveFirstAndStaticPlacementOnlyOnFreeTurns) {
  gLiveAddQueue.push_back(request("DLH1"));
  gLiveAddQueue.push_back(request("DLH2"));
  gParkedAddQueue.push_back(request("P1"));
  gRemoveQueue.push_back(21);
  gRemoveQueue.push_back(22);
  steps(201);
  EXPECT_EQ(port.calls, (std::vector<std::string>{"remove 21 @0", "create DLH1 @0", "remove 22 @10",
                                                  "create DLH2 @50", "create P1 @100"}));
  EXPECT_EQ(gPlacements, (std::vector<int>{100, 150, 200})) << "no placement on a turn a live aircraft took";
  EXPECT_EQ(port.inRange, 11) << "every 20 ticks";
  EXPECT_EQ(port.snapshots, 3) << "every 100 ticks";
}

TEST_F(EnginePort, AnUnboundPortAsksNothingAndTheStepGoesOn) {
  gf_bindSim(nullptr);
  gv_placeNextStatic.set(nullptr);
  gLiveAddQueue.push_back(request("DLH1"));
  steps(51);
  EXPECT_TRUE(port.calls.empty());
  EXPECT_TRUE(gLiveAddQueue.empty()) << "the request went to the port that does nothing";
  EXPECT_EQ(gv_tick.load(), 51);
}

}  // namespace
}  // namespace orv
