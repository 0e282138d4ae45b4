// The program starts the stand-in simulator itself on a machine without the real one.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace orv::test
