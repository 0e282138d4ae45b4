// Aircraft at stands: a drift of the reports, leaving after a short stay as a tow, pushing back
// straight along the stand's axis or turning, and arriving at the stand.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/arrival.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/ground_motion.h"
#include "engine/position_stream.h"
#include "foundation/parameters.h"
#include "ground_fixture.h"

namespace orv::test {
namespace {

constexpr LatLon kStand{50.04, 8.56};

TEST_F(GroundFlight, AParkedAircraftsDriftCountsOnlyFromTheFirstStepOfThreeMetres) {
  const std::int32_t sid = addStand("A12", kStand, 160, 30);
  const std::uint32_t id = parkedAircraft(kLarge, sid);
  // Reports of the standing aircraft, 1 m from the stand and then 2 m further each time.
  const auto report = [&](double metres) {
    Sample s = groundSample(gf_destination(kStand, 0, metres / 0.3048), 0, gv_tick + 3000);
    return checkExtendingSituations(live(id), s);
  };
  EXPECT_FALSE(report(1));
  EXPECT_NEAR(live(id).standDistMax / kMetre, 1, 1e-6);
  EXPECT_FALSE(report(3));
  EXPECT_NEAR(live(id).standDistMax / kMetre, 1, 1e-6) << "2 m is no step";
  EXPECT_FALSE(report(5));
  EXPECT_NEAR(live(id).standDistMax / kMetre, 5, 1e-6) << "4 m from the first is";
  EXPECT_EQ(live(id).driftCount, 1u);
  EXPECT_NEAR(live(id).standDistFirst / kMetre, 1, 1e-6);
  EXPECT_EQ(live(id).leavingStand, 0);
  EXPECT_EQ(live(id).flightState, kParked);
  // Beyond a half wingspan from the first report the aircraft is leaving.
  EXPECT_TRUE(report(21));
  EXPECT_EQ(live(id).leavingStand, 1);
  ASSERT_EQ(standReports.size(), 1u);
  EXPECT_EQ(standReports[0].mode, 2) << "learned: it left the stand";
  // Far from its stand a parked aircraft is elsewhere: it goes.
  const std::uint32_t gone = parkedAircraft(kLarge, addStand("A14", gf_destination(kStand, 0, 1000), 160, 30));
  Sample far = groundSample(gf_destination(kStand, 0, 2000), 0, gv_tick + 3000);
  EXPECT_FALSE(checkExtendingSituations(live(gone), far));
  EXPECT_EQ(live(gone).simState, kRemovingFromSim);
  EXPECT_EQ(standReports.back().mode, 3);
}

TEST_F(GroundFlight, AnAircraftLeavingSoonAfterLandingIsTowedByItsClassesWindow) {
  struct Case {
    std::int32_t acClass;
    int minutes;
    bool towed;
  };
  const Case cases[] = {{kHeavy, 50, true},   {kHeavy, 61, false}, {kLarge, 24, true},   {kLarge, 26, false},
                        {kBuzjets, 14, true}, {kLight, 1, false},  {kHighPerf, 1, false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "class " << c.acClass << " after " << c.minutes << " minutes");
    gLiveAc.clear();
    gStands.clear();
    gv_tick = 1000;
    const std::int32_t sid = addStand("B3", kStand, 90, 40);
    const std::uint32_t id = parkedAircraft(c.acClass, sid);
    live(id).justLanded = 1;
    ASSERT_EQ(live(id).extendCount, 1) << "the parked leg";
    gv_tick = 1001 + c.minutes * 6000;
    Sample moved = groundSample(gf_destination(kStand, 0, 150), 5, gv_tick + 3000);
    lf_leaveStand(live(id), moved);
    EXPECT_EQ(live(id).towed, c.towed ? 1 : 0);
    EXPECT_EQ(live(id).justLanded, 0);
    EXPECT_EQ(live(id).stream.front().tick, gv_tick + 1) << "the week's leg ends now";
    EXPECT_EQ(live(id).leavingStand, 1);
  }
}

// A Large parked at a stand facing north; its reports move `metres` behind the stand.
class Pushback : public GroundFlight {
 protected:
  void startPush() {
    sid = addStand("C7", kStand, 0, 30);
    id = parkedAircraft(kLarge, sid);
    deliverAt(1);
    deliverAt(-40);
  }
  void deliverAt(double metresAhead) {
    Sample s = groundSample(gf_destination(kStand, metresAhead < 0 ? 180 * kDeg : 0, std::fabs(metresAhead) / 0.3048),
                            3, gv_tick + 3000);
    s.track = 0;
    decodeExisting(live(id), s);
  }
  std::int32_t sid = 0;
  std::uint32_t id = 0;
};

TEST_F(Pushback, WithStraightPushbacksOnlyItEndsOnTheStandsAxisTwoAndAHalfRadiiOut) {
  STRAIGHT_PBS_ONLY.value = true;
  startPush();
  steps(2);
  EXPECT_EQ(live(id).flightState, kPushingBack);
  EXPECT_EQ(calls("lights").back(), "lights 1101010");
  // A report of the nose turning comes in while pushing: straight pushbacks don't follow it.
  Sample turned = groundSample(gf_destination(kStand, kPi, 100), 3, gv_tick + 3000);
  turned.track = 90;
  decodeExisting(live(id), turned);
  double farthest = 0;
  for (int i = 0; i < 6000 && live(id).flightState == kPushingBack; ++i) {
    steps(1);
    farthest = std::max(farthest, gf_distance(kStand, where(live(id))));
    EXPECT_NEAR(live(id).heading, 0, 1e-9) << "tail first, nose to the stand";
  }
  ASSERT_EQ(live(id).flightState, kPushedBack);
  const LatLon end = gf_destination(kStand, kPi, 75 / 0.3048);
  EXPECT_LT(gf_distance(where(live(id)), end), 0.5 * kMetre) << "75 m out on the stand's axis";
  EXPECT_LT(farthest, 75.5 * kMetre);
}

TEST_F(Pushback, WithoutItTheNoseSwingsToTheSideTheReportsShow) {
  startPush();
  steps(2);
  ASSERT_EQ(live(id).flightState, kPushingBack);
  // The feed shows the nose turned to the right of the heading.
  Sample turned = groundSample(gf_destination(kStand, kPi, 200), 3, gv_tick + 3000);
  turned.track = 80;
  decodeExisting(live(id), turned);
  EXPECT_EQ(live(id).pushSet, 1);
  EXPECT_EQ(live(id).noseRight, 1);
  for (int i = 0; i < 8000 && live(id).flightState == kPushingBack; ++i) steps(1);
  ASSERT_EQ(live(id).flightState, kPushedBack);
  const LatLon axis = gf_destination(kStand, kPi, 75 / 0.3048);
  EXPECT_NEAR(gf_distance(where(live(id)), axis) / kMetre, 18.5, 2) << "a half wingspan off the axis";
  EXPECT_GT(std::fabs(gf_normAngle(live(id).heading)), 45 * kDeg) << "the nose swung round";
}

// The reports of a landed aircraft end while it still rolls at 10 knots: the stream runs out
// where the last report was, and the search there reaches as far as a stand reach, not just the
// 20 m of an aircraft that stopped by itself.
TEST_F(GroundFlight, ALandedAircraftWhoseReportsEndWhileRollingFindsAStandWithinTheWideReachOnly) {
  struct Case {
    double standMetres;
    bool landed, parks;
  };
  for (const Case c : {Case{45, true, true}, Case{45, false, false}, Case{100, true, false}}) {
    SCOPED_TRACE(::testing::Message() << c.standMetres << " m, landed " << c.landed);
    gLiveAc.clear();
    gStands.clear();
    gv_tick = 1000;
    const std::uint32_t id = groundAircraft(kLarge, kStand, 0);
    LiveAc& ac = live(id);
    ac.justLanded = c.landed ? 1 : 0;
    ac.stream.clear();
    LatLon p = kStand;
    for (int i = 0; i < 4; ++i) {  // 10 knots due north, a report every 2 seconds
      ac.stream.push_back(groundSample(p, 10, 1000 + 200 * i));
      p = gf_destination(p, 0, 10.0 * 2 / 3600 * 6076.11549);
    }
    const LatLon end{ac.stream.back().lat, ac.stream.back().lon};
    const LatLon standAt = gf_destination(end, 90 * kDeg, c.standMetres / 0.3048);
    const std::int32_t sid = addStand("E5", standAt, 90, 30);
    for (int i = 0; i < 1500 && live(id).flightState == kTaxi; ++i) steps(1);
    if (!c.parks) {
      EXPECT_EQ(live(id).sid, 0);
      EXPECT_EQ(live(id).flightState, kTaxi);
      EXPECT_LT(gf_distance(where(live(id)), end), 1 * kMetre) << "it stands where its reports ended";
      continue;
    }
    ASSERT_EQ(live(id).sid, sid);
    EXPECT_EQ(live(id).flightState, kParking);
    EXPECT_LT(gv_tick, 1000 + 600 + 100) << "the search ran as the stream ran out";
    for (int i = 0; i < 10000 && live(id).flightState == kParking; ++i) steps(1);
    EXPECT_EQ(live(id).flightState, kParked);
    EXPECT_LT(gf_distance(where(live(id)), standAt), 2 * kMetre);
  }
}

}  // namespace
}  // namespace orv::test
