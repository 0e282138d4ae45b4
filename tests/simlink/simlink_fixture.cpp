#include "simlink_fixture.h"

#include <fmt/format.h>

#include <thread>

#include "engine/sim_notice_queue.h"
#include "foundation/parameter_store.h"
#include "foundation/run_flags.h"
#include "simlink/object_requests.h"
#include "simlink/sim_client.h"
#include "simlink/sim_queues.h"

namespace orv::test {

using namespace std::chrono_literals;

std::string scenarioJson(std::string_view extra, std::string_view user) {
  return fmt::format(R"({{"simulator": 2020, "applicationVersion": [11, 0, 282174, 999], "frameRate": 10,
    "terrainElevationFt": 364, "user": {{{}}},
    "titles": ["Airbus A320 Lufthansa", {{"title": "Boeing 737-800 Ryanair", "model": "B738"}},
               {{"title": "Airbus H145 Christoph", "model": "H145"}}]{}{}}})",
                     user, extra.empty() ? "" : ", ", extra);
}

void SimLinkTest::SetUp() {
  standin::reset();
  gf_setWindow(&window);
  previousDir = std::filesystem::current_path();
  std::filesystem::current_path(work.path());
  gf_writeParameters(true);
}

void SimLinkTest::TearDown() {
  lf_joinSimClient();
  standin::reset();
  std::filesystem::current_path(previousDir);
  gf_setWindow(nullptr);
}

void SimLinkTest::startClient(std::string_view scenario) {
  standin::loadScenarioText(scenario);
  standin::start(standin::Clock::Stepped);
  lf_startSimClient();
}

void SimLinkTest::connect(std::string_view scenario) {
  startClient(scenario);
  ASSERT_TRUE(standin::waitForSession("Orvane"));
  settle();
}

void SimLinkTest::settle() { ASSERT_TRUE(standin::waitUntilIdle(10s)); }

void SimLinkTest::frames(int count) {
  for (int i = 0; i < count; ++i) {
    standin::advanceFrames(1);
    settle();
  }
}

std::uint32_t SimLinkTest::createOwn(std::uint32_t hexid, const std::string& callsign, std::string_view title,
                                     double altitudeFt) {
  simQueueCreate(AddRequest{50.04, 8.57, altitudeFt, 0, 0, 250, 0, 0, callsign, title, hexid});
  frames(3);  // the create call, the object's existence, ObjectAdded
  lf_requestAircraftInRange();
  settle();
  const auto object = standin::objectByAtcId(callsign);
  return object ? object->objectId : 0;
}

std::vector<SimNotice> SimLinkTest::takeNotices() {
  return gSimNotices.takeAll();
}

bool SimLinkTest::waitForStop() {
  // The client ends the run after its dispatch has returned, so this polls.
  for (int i = 0; i < 500 && !gv_stopRun.load(); ++i) std::this_thread::sleep_for(10ms);
  return gv_stopRun.load();
}

}  // namespace orv::test
