// Flights in the air through the engine step: the aircraft flies the reported path 30 seconds
// behind, banks and pitches within its class's limits, and changes its configuration as it
// descends.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "engine/air_leg.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/motion.h"
#include "engine/user_snapshot.h"
#include "flight_fixture.h"

namespace orv::test {
namespace {

constexpr double kDeg = 1.0 / 57.29577951308232;

// The largest change of one attitude value from one tick to the next.
struct LargestStep {
  double largest = 0, last = 0;
  bool first = true;
  void see(double value) {
    if (!first) largest = std::max(largest, std::fabs(value - last));
    last = value, first = false;
  }
};

TEST_F(EngineFlight, AStraightCruiseLiesOnTheReportedTrackThirtySecondsBehind) {
  const auto reports = straightReports(50.0, 8.0, 35000, 450, 70, 5, 40);
  // Where the real aircraft was `lag` ticks more than 30 seconds ago.
  const auto reported = [](std::int32_t lag) {
    const double t = (gv_tick - 3000 - lag) / 100.0;
    return gf_destination({50.0, 8.0}, 70 * kDeg, 450 * t / 3600.0 * 6076.11549);
  };
  std::int32_t lag = -1;
  double worst = 0;
  int checked = 0;
  fly(70001, "DLH400", "A320", reports, 20500, [&] {
    const LiveAc* ac = record(70001);
    if (ac == nullptr || ac->simState != kActive || gv_tick < 4000) return;
    if (lag < 0) {
      // The legs are flown from the moment the object settled: the path slides by that much.
      lag = 0;
      for (std::int32_t k = 1; k <= 1000; ++k)
        if (gf_distance(reported(k), {ac->lat, ac->lon}) < gf_distance(reported(lag), {ac->lat, ac->lon})) lag = k;
    }
    worst = std::max(worst, gf_distance(reported(lag), {ac->lat, ac->lon}));
    EXPECT_NEAR(ac->alt, 35000, 1e-6);
    ++checked;
  });
  EXPECT_GT(checked, 15000);
  EXPECT_LE(lag, 260) << "ticks behind the reports' due times: about the 200 ticks of settling";
  EXPECT_LT(worst, 0.01) << "nautical miles off the reported path";
  ASSERT_EQ(port.creations.size(), 1u);
  EXPECT_NEAR(port.creations[0].lat, 50.0, 1e-9) << "created at the first report";
  EXPECT_EQ(record(70001)->flightState, kFlying);
}

TEST_F(EngineFlight, TheReportsEndTheAircraftFliesOnAWhileAndIsRemoved) {
  fly(70002, "DLH401", "A320", straightReports(50.0, 8.0, 35000, 450, 70, 5, 10), 8000);
  ASSERT_NE(record(70002), nullptr);
  EXPECT_GT(record(70002)->extendCount, 0) << "flying on straight beyond the last report";
  steps(8000);
  EXPECT_EQ(record(70002), nullptr) << "removed once the extension ran out";
  EXPECT_EQ(port.removals.size(), 1u);
}

TEST_F(EngineFlight, BankFollowsTheReportedRollOrTheClassStepLimit) {
  // A right turn of 3 degrees a second, reported with a roll of 25 degrees.
  std::vector<Report> reports;
  LatLon p{50.0, 8.0};
  for (int i = 0; i < 30; ++i) {
    const double track = 3.0 * 5 * i;
    reports.push_back({5.0 * i, p.lat, p.lon, 8000, 250, track, 0, 25 * kDeg});
    p = gf_destination(p, track * kDeg, 250 * 5 / 3600.0 * 6076.11549);
  }
  std::vector<Report> noRoll = reports;
  for (Report& r : noRoll) r.roll.reset();

  fly(70003, "DLH402", "A320", reports, 9000);
  EXPECT_NEAR(record(70003)->bank, 25 * kDeg, 1.5 * kDeg) << "the reported roll, reached by each sample";

  LargestStep bankStep;
  fly(70004, "DLH403", "A320", noRoll, 18000, [&] {
    const LiveAc* ac = record(70004);
    if (ac != nullptr && ac->simState == kActive) bankStep.see(ac->bank);
  });
  EXPECT_LE(bankStep.largest, 0.02 * kDeg + 1e-12) << "a Large aircraft banks at most 0.02 degrees a tick";
  EXPECT_GT(std::fabs(record(70004)->bank), 1 * kDeg) << "it does bank into the turn";
}

TEST_F(EngineFlight, ADescentThroughTenThousandFeetChangesLightsAndFlapsInOrder) {
  const auto reports = straightReports(50.0, 8.0, 12000, 250, 180, 5, 90, -1500);
  fly(70005, "DLH404", "A320", reports, 47500);
  // Changes only: the light set is sent again on each leg.
  std::vector<PortCall> changes;
  std::string lights;
  for (const PortCall& c : port.calls) {
    if (c.what.starts_with("lights")) {
      if (c.what == lights) continue;
      lights = c.what;
    }
    changes.push_back(c);
  }
  std::erase_if(changes,
                [](const PortCall& c) { return c.what.starts_with("throttle") || c.what.starts_with("spoilers"); });
  std::vector<std::string> order;
  for (const PortCall& c : changes) order.push_back(c.what);
  EXPECT_EQ(order, (std::vector<std::string>{"lights 1100101", "lights 1100001", "flaps 0", "lights 1111111", "flaps 1",
                                             "lights 1111110"}))
      << "created lit, the cruise set, all lights below 10000 ft, flaps 1 low, cabin dark on the approach";
  ASSERT_EQ(changes.size(), 6u);
  EXPECT_LT(changes[3].alt, 10000);
  EXPECT_GT(changes[3].alt, 9800);
  EXPECT_LT(changes[4].alt, 2400);
  EXPECT_LE(changes[5].alt, 2050);
}

TEST(AirborneMotion, PitchTargetsFollowTheVerticalSpeed) {
  EXPECT_NEAR(gf_targetPitch(1200), -7.4 * kDeg, 1e-12);
  EXPECT_NEAR(gf_targetPitch(-1200), -0.8 * kDeg, 1e-12);
  EXPECT_NEAR(gf_targetPitch(5000), gf_targetPitch(2400), 1e-12);
  EXPECT_NEAR(gf_targetPitch(-9000), gf_targetPitch(-3000), 1e-12);
  EXPECT_NEAR(gf_targetPitch(0), -3 * kDeg, 1e-12);
}

TEST_F(EngineFlight, AHeavyPitchesAtMostHalfAHundredthOfADegreeATick) {
  // A Heavy levels off from a 2400 ft/min climb: 10 degrees of pitch to lose.
  auto reports = straightReports(50.0, 8.0, 20000, 300, 0, 5, 12, 2400);
  for (std::size_t i = 4; i < reports.size(); ++i) reports[i].vs = -3000;
  LargestStep pitchStep;
  fly(70006, "BAW1", "B744", reports, 9000, [&] {
    const LiveAc* ac = record(70006);
    if (ac != nullptr && ac->simState == kActive) pitchStep.see(ac->pitch);
  });
  EXPECT_NEAR(pitchStep.largest, 0.005 * kDeg, 1e-9) << "the class 3 pitch step, whatever the legs";
}

TEST(AirborneMotion, PositionsFoldAtTheAntimeridianAndOverThePoles) {
  double lat = 10, lon = 180.5;
  gf_foldPosition(lat, lon);
  EXPECT_NEAR(lon, -179.5, 1e-9);
  EXPECT_EQ(lat, 10);
  lat = 90.5, lon = 20;
  gf_foldPosition(lat, lon);
  EXPECT_NEAR(lat, 89.5, 1e-9);
  EXPECT_NEAR(lon, -160, 1e-9);
  lat = -90.25, lon = -170;
  gf_foldPosition(lat, lon);
  EXPECT_NEAR(lat, -89.75, 1e-9);
  EXPECT_NEAR(lon, 10, 1e-9);
  EXPECT_EQ(gf_foldHeading(6.3), 6.3 - 2 * 3.14159265358979323846);
  EXPECT_NEAR(gf_foldHeading(-0.1), 2 * 3.14159265358979323846 - 0.1, 1e-12);
}

TEST_F(EngineFlight, AFlightAcrossTheAntimeridianKeepsItsShortWay) {
  gUserSnapshot.lat = 0.0;  // the user flies there too: traffic far out of range isn't spawned
  gUserSnapshot.lon = 179.95;
  const auto reports = straightReports(0.0, 179.9, 35000, 480, 90, 5, 20);
  double largestJump = 0, lastLon = 0;
  bool first = true;
  fly(70007, "QFA1", "A320", reports, 12000, [&] {
    const LiveAc* ac = record(70007);
    if (ac == nullptr || ac->simState != kActive) return;
    if (!first) largestJump = std::max(largestJump, std::fabs(std::remainder(ac->lon - lastLon, 360.0)));
    lastLon = ac->lon, first = false;
  });
  EXPECT_LT(largestJump, 0.001);
  EXPECT_LT(record(70007)->lon, -179.0) << "beyond the antimeridian, folded";
}

}  // namespace
}  // namespace orv::test
