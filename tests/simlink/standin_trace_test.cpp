#include <gtest/gtest.h>

#include <mutex>
#include <sstream>

#include "engine/position_exchange.h"
#include "engine/engine_tables.h"
#include "simlink/standin_launch.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

TEST_F(SimLinkTest, TheTraceShowsOurAircraftWhereThePositionWritesPutIt) {
  connect();
  const std::uint32_t live = createOwn(4000001, "DLH401");
  const auto file = work / "trace.csv";
  standin::startTrace(file, 1);
  for (int step = 1; step <= 3; ++step) {
    gPositionOut.engine().push_back(
        PositionOut{50.04 + step * 0.001, 8.57, 0, 0, 1.5, 3000.0 + step * 10, 0, 250, live});
    gPositionOut.handOver();
    frames();
  }
  frames();  // a frame's line shows the object before the client's writes of that frame
  standin::stopTrace();

  std::istringstream lines(readFile(file));
  std::string line;
  std::vector<std::string> ours;
  while (std::getline(lines, line))
    if (line.find(",DLH401,") != std::string::npos) ours.push_back(line);
  ASSERT_EQ(ours.size(), 4u);
  EXPECT_NE(ours[1].find(",50.04100000,8.57000000,3010.00,"), std::string::npos) << ours[1];
  EXPECT_NE(ours[3].find(fmt::format(",{},DLH401,Airbus A320 Lufthansa,50.04300000,8.57000000,3030.00,", live)),
            std::string::npos) << ours[3];
}

TEST(StandinLaunch, DefaultScenarioOrTheFileOfTheOption) {
  LogCapture log;
  standin::reset();
  TempDir dir;
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
