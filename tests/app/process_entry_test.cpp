#include "app/process_entry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "app/run_stage.h"
#include "app/working_folder.h"
#include "dbase_fixture.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "feed/feed_readers.h"
#include "feed/traffic_decoder.h"
#include "foundation/run_flags.h"
#include "foundation/user_paths.h"
#include "platform/desktop/desktop.h"
#include "platform/window/window_layer.h"
#include "simlink/sim_run_state.h"
#include "simlink/sim_session.h"
#include "simlink/standin_launch.h"
#include "simlink/user_aircraft.h"
#include "test_support.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::readFile;

// A report near the user's aircraft at Frankfurt, as RealTraffic sends it.
std::string report(std::uint32_t hexid, const char* cs, double timestamp) {
  return fmt::format(
      "0,{},50.05,8.57,12000,-800,,250,280,{},A320,D-AIZA,FRA,MUC,{:.1f},,,adsb_icao,,,300,,,-1,,250,,,A3", hexid, cs,
      timestamp);
}

class ProcessRun : public testing::Test {
 protected:
  void SetUp() override {
    // Free ports for the readers, so that runs side by side never meet on 49004/49005.
    gv_trafficPort = 0;
    gv_qnhPort = 0;
    fs::create_directories(work / "docs");
    fs::create_directories(work / "input");
    test::writeEncrypted(work / "input" / "dbase.enc", test::DbaseXml().text());
    // The catalogue of airports and the list of all airport codes.
    test::writeEncrypted(work / "input" / "airports.enc",
                         R"(<root><airports><ap c="EDDF" i="FRA" la="50.0333" lo="8.5706" a="364" s="1"/></airports></root>)");
    test::writeFile(work / "input" / "ICAO_airports.txt", "EDDF,EDDM\nEHAM\n");
    // The user's liveries, as a scan has left them.
    fs::create_directories(work / "output");
    test::writeFile(work / "output" / "LiveriesScanned.xml",
                    R"(<root><liveries><l a="DLH" m="A320" t="Airbus A320 Lufthansa"/>)"
                    R"(<l a="PVT" m="C172" t="Cessna 172 D-EABC" r="D-EABC"/></liveries></root>)");
  }
  void TearDown() override {
    stopSimulator();
    gv_simRunning = false;
    gv_userAircraftKnown = false;
    fs::current_path(previous);
  }

  // Starts the process on its own thread, as main() would.
  void start(std::vector<std::string> args = {}) {
#if defined(_WIN32)
    // Windows starts the stand-in simulator only on request, and only without SimConnect.dll.
    test::unsetEnv("MSFS_SDK");
    test::unsetEnv("MSFS2024_SDK");
    test::writeFile(work / "default_eddf.json", kDefaultStandinScenario);
    args.insert(args.end(), {"--scenario", (work / "default_eddf.json").string()});
#endif
    result = std::async(std::launch::async, [this, args] { return lf_runProcess(work.path(), args); });
  }
  bool reach(RunStage stage, std::chrono::milliseconds limit = 10s) {
    return test::eventually([stage] { return gv_runStage.load() == stage; }, limit);
  }
  // The simulator runs a flight and knows the user aircraft.
  void simulatorReady() {
    {
      std::lock_guard lock(gSimMutex);
      gUserData.lat = 50.0333;
      gUserData.lon = 8.5706;
    }
    gv_userAircraftKnown = true;
    gv_simRunning = true;
    // The simulator's per-second data block, ten times faster than real.
    seconds = std::thread([this] {
      while (!simulatorStop) {
        gv_secondTick = true;
        std::this_thread::sleep_for(100ms);
      }
    });
  }
  void stopSimulator() {
    simulatorStop = true;
    if (seconds.joinable()) seconds.join();
    simulatorStop = false;
  }
  int finish() {
    EXPECT_EQ(result.wait_for(20s), std::future_status::ready);
    return result.get();
  }

  test::AppDataOverride appData;
  test::TempDir work;
  fs::path previous = fs::current_path();
  std::future<int> result;
  std::thread seconds;
  std::atomic<bool> simulatorStop{false};
};

TEST_F(ProcessRun, PassesTheStagesAndTurnsFeedLinesIntoBufferRecords) {
  test::writeFile(work / "Log.txt", "the log of the run before");
  start();
  ASSERT_TRUE(reach(RunStage::WaitingForSim));
  simulatorReady();
  ASSERT_TRUE(reach(RunStage::StartingReaders));
  gTrafficDecoder.processLine(report(4000001, "DLH1", 1795392000.0));  // the first stamp; the feed is still off
  ASSERT_TRUE(reach(RunStage::Running));
  gTrafficDecoder.processLine(report(4000002, "DLH2", 1795392001.0));
  gTrafficDecoder.processLine(report(4000003, "DLH3", 1795392001.0));
  gTrafficDecoder.processLine(report(4000002, "DLH2", 1795392005.0));
  std::this_thread::sleep_for(300ms);
  gf_window().post(WM_CLOSE);
  EXPECT_EQ(finish(), 0);

  // The line before the feed was on is dropped; how records are built is the engine's test.
  ASSERT_EQ(gLiveAc.size(), 2u);
  EXPECT_EQ(gLiveAc[0].hexid, 4000002u);
  EXPECT_GT(gv_tick, 10) << "the engine ticks while the flight runs";

  const std::string log = readFile(work / "Log.txt");
  EXPECT_NE(log.find("(utc) Orvane version 12.5.4 for MSFS 2020/2024\n"), std::string::npos) << log;
  EXPECT_NE(log.find("RealTraffic not detected at this PC\n"), std::string::npos);
  EXPECT_NE(log.find(" ICAO model codes\n"), std::string::npos) << "the reference data are read";
  EXPECT_NE(log.find("    2 liveries read from output/LiveriesScanned.xml\n"), std::string::npos) << "and the liveries";
  EXPECT_NE(log.find("    1 airports read\n3 ICAO codes of airports read\n"), std::string::npos) << "and the airports";
  EXPECT_FALSE(fs::exists(work / "input" / "airports.xml")) << "no plain copy of the catalogue stays";
  EXPECT_FALSE(fs::exists(work / "input" / "dbase.xml")) << "no plain copy stays";
  EXPECT_EQ(log.find("No traffic in this region?"), std::string::npos);
  EXPECT_NE(log.find("Exiting: USER CLOSED SIM\n"), std::string::npos);
  EXPECT_EQ(readFile(work / "Log0.txt"), "the log of the run before");
  EXPECT_TRUE(fs::exists(appData.path() / "Orvane" / "parameters.xml"));
  for (const char* folder : {"output/info", "output/errors", "airports/learned/stock", "input/my_regcodes"})
    EXPECT_TRUE(fs::is_directory(work / folder)) << folder;
}

TEST_F(ProcessRun, AStopDuringAnyWaitReachesClosingDownWithinOneWaitPeriod) {
  // Waiting for the simulator, for the user's position, in the pause before the Traffic
  // Reader starts, and for the first feed time stamp.
  const auto stopAndTime = [this] {
    const auto t0 = std::chrono::steady_clock::now();
    requestStop(ExitReason::SimWasClosed, 0);
    EXPECT_TRUE(reach(RunStage::Closing, 2s));
    const auto took = std::chrono::steady_clock::now() - t0;  // closing down itself takes longer
    EXPECT_EQ(finish(), 0);
    return took;
  };
  start();
  ASSERT_TRUE(reach(RunStage::WaitingForSim));
  EXPECT_LT(stopAndTime(), 400ms);
  EXPECT_NE(readFile(work / "Log.txt").find("Exiting: SIM WAS CLOSED\n"), std::string::npos);

  start();
  ASSERT_TRUE(reach(RunStage::WaitingForSim));
  gv_simRunning = true;  // running, but the user's position is not known
  std::this_thread::sleep_for(200ms);
  EXPECT_LT(stopAndTime(), 800ms);

  for (auto wait : {100ms, 2500ms}) {
    start();
    ASSERT_TRUE(reach(RunStage::WaitingForSim));
    simulatorReady();
    ASSERT_TRUE(reach(RunStage::StartingReaders));
    std::this_thread::sleep_for(wait);
    EXPECT_LT(stopAndTime(), 400ms) << "after " << wait.count() << " ms of starting the readers";
    stopSimulator();
  }
}

TEST_F(ProcessRun, ProductionRunPreparesTheDataAndLeaves) {
  start({"/NO-PRODUCTION", "/Production"});
  EXPECT_EQ(finish(), 0);
  const std::string log = readFile(work / "Log.txt");
  EXPECT_NE(log.find("production\n"), std::string::npos) << log;
  EXPECT_EQ(log.find("RealTraffic"), std::string::npos) << "leaves before looking for the feed";
  EXPECT_NE(log.find("Exiting: USER CLOSED SIM\n"), std::string::npos);
}

TEST_F(ProcessRun, ASecondInstanceLeavesAtOnceWithoutTouchingTheLog) {
  const desktop::SingleInstance first(gf_userFolder(), "$Orvane$");
  ASSERT_TRUE(first.held());
  EXPECT_EQ(lf_runProcess(work.path(), {}), -1);
  EXPECT_FALSE(fs::exists(work / "Log.txt"));
}

TEST_F(ProcessRun, WithoutDocsTheRunEndsWithTheFolderError) {
  fs::remove(work / "docs");
  start({"--seconds", "1"});
  // Closed by the user with the error on display: the exit code is the one of the quit.
  EXPECT_EQ(finish(), 0);
  EXPECT_NE(readFile(work / "Log.txt").find("Error 41: Orvane must be run from the Orvane folder!\n"), std::string::npos);
}

TEST_F(ProcessRun, WithoutTheAirportCatalogueTheRunEndsWithItsError) {
  fs::remove(work / "input" / "airports.enc");
  start({"--seconds", "1"});
  EXPECT_EQ(finish(), 0);
  EXPECT_NE(readFile(work / "Log.txt").find("Error 88: "), std::string::npos) << readFile(work / "Log.txt");
}

TEST(WorkingFolder, CommandLineThenEnvironmentThenProgramFolder) {
  EXPECT_EQ(lf_workingFolder({"--workdir", "/some/where"}), fs::path("/some/where"));
  test::setEnv("ORVANE_HOME", "/from/env");
  EXPECT_EQ(lf_workingFolder({}), fs::path("/from/env"));
  test::unsetEnv("ORVANE_HOME");
  EXPECT_TRUE(fs::exists(lf_workingFolder({})));
}

}  // namespace
}  // namespace orv
