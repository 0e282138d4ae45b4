// The program starts the stand-in simulator itself on a machine without the real one.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "simlink/standin_launch.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

TEST(StandinLaunch, DefaultScenarioOrTheFileOfTheOption) {
  LogCapture log;
  standin::reset();
  TempDir dir;
  // The default scenario keeps its trace in the working folder's output/.
  struct InFolder {
    std::filesystem::path previous = std::filesystem::current_path();
    explicit InFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
    ~InFolder() { std::filesystem::current_path(previous); }
  } inDir(dir.path());
#if defined(_WIN32)
  // Without SimConnect.dll the stand-in serves only on request, and the log says where the
  // library was looked for.
  unsetEnv("MSFS_SDK");
  setEnv("MSFS2024_SDK", (dir / "sdk").string());
  gf_startStandinSimulator({"--seconds", "20"});
  EXPECT_FALSE(standin::isRunning());
  EXPECT_NE(log.text().find("SimConnect.dll not found (looked for "), std::string::npos) << log.text();
  EXPECT_NE(log.text().find((dir / "sdk" / "SimConnect SDK" / "lib" / "SimConnect.dll").string() +
                            "); without it only --scenario FILE starts the stand-in simulator\n"),
            std::string::npos)
      << log.text();
  unsetEnv("MSFS2024_SDK");
  writeFile(dir / "default_eddf.json", kDefaultStandinScenario);
  const std::string scenario = (dir / "default_eddf.json").string();
  gf_startStandinSimulator({"--scenario", scenario});
  EXPECT_NE(log.text().find("SimConnect served by the stand-in simulator\nStand-in simulator started in real time with " +
                            scenario + "\n"),
            std::string::npos)
      << log.text();
#else
  gf_startStandinSimulator({"--seconds", "20"});
  EXPECT_NE(log.text().find("SimConnect served by the stand-in simulator\nStand-in simulator started in real time "
                            "with default_eddf.json\n"),
            std::string::npos);
#endif
  ASSERT_TRUE(standin::isRunning());
  EXPECT_EQ(standin::objects().front().title, "Airbus A320 Neo Asobo");
  EXPECT_NEAR(standin::objects().front().latitude, 50.05, 0.01) << "parked at Frankfurt";
  gf_stopStandinSimulator();
  standin::stopTrace();
  EXPECT_EQ(readFile(dir / "output" / "standin_trace.csv").rfind("time_s,frame,object_id,", 0), 0u);

  writeFile(dir / "bad.json", R"({"user": {"latitude": "north"}})");
  try {
    gf_startStandinSimulator({"--scenario", (dir / "bad.json").string()});
    ADD_FAILURE() << "a bad scenario starts nothing";
  } catch (const std::exception& e) {
    EXPECT_NE(std::string(e.what()).find("bad.json': user.latitude"), std::string::npos) << e.what();
  }
  EXPECT_FALSE(standin::isRunning());
  standin::reset();
}

TEST(StandinLaunch, TimeScaleSpeedsUpTheSimulatorsClock) {
  EXPECT_EQ(lf_timeScaleOption({"--seconds", "20"}), 1.0);
  EXPECT_EQ(lf_timeScaleOption({"--time-scale", "4", "--time-scale", "12.5"}), 12.5) << "the last one wins";
  for (const char* bad : {"0", "-2", "101", "fast", "10x", "nan", ""}) {
    try {
      lf_timeScaleOption({"--time-scale", bad});
      ADD_FAILURE() << bad << " is refused";
    } catch (const std::runtime_error& e) {
      EXPECT_EQ(std::string(e.what()), std::string("--time-scale: '") + bad + "' is not a number above 0 and at most 100");
    }
  }
  EXPECT_THROW(lf_timeScaleOption({"--time-scale"}), std::runtime_error) << "a missing value";
#if !defined(_WIN32)
  LogCapture log;
  standin::reset();
  TempDir dir;
  writeFile(dir / "plain.json", R"({"frameRate": 50})");
  const std::string scenario = (dir / "plain.json").string();
  gf_startStandinSimulator({"--scenario", scenario, "--time-scale", "20"});
  EXPECT_NE(log.text().find("Stand-in simulator started at 20 times real time with " + scenario + "\n"), std::string::npos)
      << log.text();
  // Half a second of wall time is ten simulated seconds: well past two.
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  EXPECT_GT(standin::simTime(), 2.0);
  EXPECT_LT(standin::simTime(), 12.0);
  gf_stopStandinSimulator();
  standin::reset();
#endif
}

}  // namespace
}  // namespace orv::test
