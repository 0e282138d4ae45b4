#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "foundation/message_area.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "simlink/sim_run_state.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "simlink/sim_client.h"
#include "simlink/sim_session.h"
#include "engine/position_exchange.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

using namespace std::chrono_literals;

TEST_F(SimLinkTest, ConnectsWhenTheSimulatorStartsLateAndDeclaresEverything) {
  standin::loadScenarioText(scenarioJson());
  lf_startSimClient();
  std::this_thread::sleep_for(250ms);  // opens are refused meanwhile
  EXPECT_FALSE(gSimStatus.connected.load());
  standin::start(standin::Clock::Stepped);
  ASSERT_TRUE(standin::waitForSession("Orvane"));
  settle();
  const std::string text = log.text();
  const auto waiting = text.find("Waiting for MSFS 2020 ...\n");
  EXPECT_NE(waiting, std::string::npos);
  EXPECT_EQ(text.find("Waiting", waiting + 1), std::string::npos) << "announced once, however often it retries";
  EXPECT_NE(text.find("MSFS 2020 (11.0.282174.999) connected\n"), std::string::npos) << text;
  EXPECT_EQ(gSimStatus.name.load(), "MSFS 2020 (11.0.282174.999)");
  EXPECT_TRUE(gv_simRunning.load()) << "the \"Sim\" state comes with the subscription";

  const auto session = standin::session("Orvane");
  ASSERT_TRUE(session);
  EXPECT_EQ(session->systemEvents.at(223), "Pause_EX1");
  EXPECT_EQ(session->systemEvents.at(205), "FlightLoaded");
  const auto& group = session->groups.at(301);
  EXPECT_EQ(group.size(), session->clientEvents.size() - 1);
  EXPECT_EQ(std::count(group.begin(), group.end(), 220u), 0) << "ENGINE_AUTO_START stays out of the group";
  EXPECT_EQ(session->groupPriorities.at(301), 1u);

  // "Sim" stays 1 in a pause; the pause itself stops the flight for the program.
  standin::setActivePause(true);
  settle();
  EXPECT_FALSE(gv_simRunning.load()) << "an active pause";
  standin::setActivePause(false);
  settle();
  EXPECT_TRUE(gv_simRunning.load());
  standin::setPaused(true);
  settle();
  EXPECT_FALSE(gv_simRunning.load());
  lf_joinSimClient();
  EXPECT_NE(log.text().find("SimConnect closed ok\n"), std::string::npos);
  EXPECT_FALSE(gSimStatus.connected.load());
  EXPECT_EQ(gv_simHandle, nullptr);
  EXPECT_FALSE(gv_stopRun.load()) << "a stop of the thread is no end of the run";
}

TEST_F(SimLinkTest, KittyHawkWhileMsfs2024IsChosenSwitchesTheChoiceAndRestarts) {
  SIM_CHOICE.set("MSFS 2024");
  gv_isMsfs2020 = false;
  startClient();
  ASSERT_TRUE(waitForStop());
  lf_joinSimClient();
  EXPECT_EQ(gv_exitReason.load(), ExitReason::NewSettings);
  EXPECT_EQ(gv_restartSeconds.load(), 3);
  EXPECT_EQ(SIM_CHOICE.value, "MSFS 2020");
  const std::string saved = readFile(appData.path() / "Orvane" / "parameters.xml");
  EXPECT_NE(saved.find(R"(name="SIM_CHOICE" value="MSFS 2020")"), std::string::npos);
  const std::string text = log.text();
  const auto mismatch = text.find("MSFS and Orvane do not match, restarting ...\n");
  EXPECT_NE(mismatch, std::string::npos);
  EXPECT_GT(text.find("Switching MSFS version in Orvane\n"), mismatch);
}

TEST_F(SimLinkTest, APositionWriteLandsEveryValueInItsPlace) {
  connect();
  const std::uint32_t id = createOwn(4000001, "DLH401");
  ASSERT_NE(id, 0u);
  // Eight different values: two datums swapped within the definition would show here.
  gPositionOut.engine().push_back(PositionOut{50.05, 8.58, 0.05, -0.1, 1.0, 3100, 12.5, 251, id});
  gPositionOut.handOver();
  frames();
  const auto o = standin::object(id);
  ASSERT_TRUE(o);
  EXPECT_DOUBLE_EQ(o->latitude, 50.05);
  EXPECT_DOUBLE_EQ(o->longitude, 8.58);
  EXPECT_DOUBLE_EQ(o->pitchRad, 0.05);
  EXPECT_DOUBLE_EQ(o->bankRad, -0.1);
  EXPECT_DOUBLE_EQ(o->headingRad, 1.0);
  EXPECT_DOUBLE_EQ(o->altitudeFt, 3100);
  EXPECT_DOUBLE_EQ(o->verticalSpeedFps, 12.5);
  EXPECT_DOUBLE_EQ(o->trueAirspeedKt, 251);
}

TEST_F(SimLinkTest, AnotherSimulatorIsAnErrorRaisedAfterTheDispatchAndTheRunEndsAsWithoutSimulator) {
  // The open record of a foreign simulator throws inside the callback. The stand-in ends the
  // process for an exception that reaches it, as the real library would; here the client
  // catches it, skips the records behind it, and ends the run after the dispatch.
  startClient(scenarioJson(R"("applicationName": "Prepar3D v5")"));
  ASSERT_TRUE(waitForStop());
  lf_joinSimClient();
  EXPECT_FALSE(gSimStatus.running.load()) << "the Sim record behind the open record was skipped";
  EXPECT_EQ(gf_messageArea().errorText, "77: 'Prepar3D v5' not being MSFS 2020 or MSFS 2024 connects ... ?");
  EXPECT_EQ(gv_exitReason.load(), ExitReason::SimWasClosed);
  EXPECT_NE(log.text().find(" Flight Simulator no longer connected, Orvane will stop ...\n"), std::string::npos);
}

}  // namespace
}  // namespace orv::test
