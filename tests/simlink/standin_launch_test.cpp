// The program starts the stand-in simulator itself on a machine without the real one.
#include <gtest/gtest.h>

#include "simlink/standin_launch.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

TEST(StandinLaunch, DefaultScenarioOrTheFileOfTheOption) {
  LogCapture log;
  standin::reset();
  gf_startStandinSimulator({"--seconds", "20"});
  ASSERT_TRUE(standin::isRunning());
  EXPECT_EQ(standin::objects().front().title, "Airbus A320 Neo Asobo");
  EXPECT_NEAR(standin::objects().front().latitude, 50.05, 0.01) << "parked at Frankfurt";
  EXPECT_NE(log.text().find("Stand-in simulator started in real time with default_eddf.json\n"), std::string::npos);
  gf_stopStandinSimulator();

  TempDir dir;
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
