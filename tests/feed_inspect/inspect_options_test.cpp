#include <gtest/gtest.h>

#include <string>

#include "inspect_options.h"

namespace orv::inspect {
namespace {

std::string errorOf(const std::vector<std::string_view>& arguments) {
  try {
    parseOptions(arguments);
  } catch (const OptionError& e) {
    return e.what();
  }
  return "no error";
}

TEST(InspectOptions, StateIsReadAndMistakesAreNamed) {
  const auto none = parseOptions({});
  EXPECT_EQ(none.state.userLat, 0.0);
  EXPECT_EQ(none.state.rangeNm, 40);
  EXPECT_EQ(none.state.qnh, 1013);
  EXPECT_FALSE(none.state.park);
  EXPECT_FALSE(none.state.airborneOnly);

  const auto all = parseOptions(
      {"--user", "50.03,-8.57", "--range", "100", "--qnh", "990", "--park", "50.03,8.57,364", "--airborne-only"});
  EXPECT_EQ(all.state.userLat, 50.03);
  EXPECT_EQ(all.state.userLon, -8.57);
  EXPECT_EQ(all.state.rangeNm, 100);
  EXPECT_EQ(all.state.qnh, 990);
  ASSERT_TRUE(all.state.park);
  EXPECT_EQ(all.state.park->elevationFt, 364);
  EXPECT_TRUE(all.state.airborneOnly);
  EXPECT_TRUE(parseOptions({"--help"}).help);

  EXPECT_EQ(errorOf({"--range", "7"}),
            "--range 7: one of 2, 3, 4, 5, 6, 8, 10, 12, 14, 16, 18, 20, 25, 30, 35, 40, 50, 65, 80, 100");
  EXPECT_EQ(errorOf({"--user", "91,8"}), "--user: 91,8 is not a position (latitude -90 to 90, longitude -180 to 180)");
  EXPECT_EQ(errorOf({"--user", "50"}), "--user 50: expected LAT,LON");
  EXPECT_EQ(errorOf({"--park", "50,8"}), "--park 50,8: expected LAT,LON,ELEVATION_FT");
  EXPECT_EQ(errorOf({"--park", "50,8,high"}), "--park high: not a number");
  EXPECT_EQ(errorOf({"--qnh", "1013.5"}),
            "--qnh 1013.5: whole hectopascal from 900 to 1100, as the QNH Reader holds it");
  EXPECT_EQ(errorOf({"--qnh", "899"}), "--qnh 899: whole hectopascal from 900 to 1100, as the QNH Reader holds it");
  EXPECT_EQ(errorOf({"--qnh"}), "--qnh needs a value");
  EXPECT_EQ(errorOf({"--verbose"}), "unknown option --verbose (--help lists them)");
}

}  // namespace
}  // namespace orv::inspect
