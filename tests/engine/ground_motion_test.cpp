// Ground legs one at a time: corners, turns on the spot, the take-off roll's rotation, the end
// of the roll-out, and what a touch-down writes to the simulator.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/ground_curve.h"
#include "engine/landing.h"
#include "engine/motion.h"
#include "engine/park_airport_site.h"
#include "engine/position_stream.h"
#include "ground_fixture.h"

namespace orv::test {
namespace {

constexpr LatLon kApron{50.03, 8.55};

TEST_F(GroundFlight, ACornerOfThreeDegreesGoesStraightMoreIsACurveAndANearReversalTurnsOnTheSpot) {
  struct Case {
    double turnDeg;
    bool curve;
  };
  for (const Case c : {Case{3.0, false}, Case{3.5, true}, Case{45.0, true}, Case{170.0, false}}) {
    SCOPED_TRACE(c.turnDeg);
    gLiveAc.clear();
    gv_tick = 1000;
    // Two legs of 40 m at 15 knots, the first due north along the heading.
    const std::uint32_t id = groundAircraft(kLarge, kApron, 0);
    LiveAc& ac = live(id);
    const LatLon p1 = gf_destination(kApron, 0, 40 / 0.3048);
    const LatLon p2 = gf_destination(p1, c.turnDeg * kDeg, 40 / 0.3048);
    ac.stream.clear();
    ac.stream.push_back(groundSample(kApron, 15, 1000));
    ac.stream.push_back(groundSample(p1, 15, 1520));
    ac.stream.push_back(groundSample(p2, 15, 2040));
    lf_nextPos(ac);
    EXPECT_EQ(lf_curveInForce(ac), c.curve);
    EXPECT_EQ(ac.sharpTurn, 0) << "the first leg runs along the heading";
    if (c.curve) {
      EXPECT_NEAR(ac.curveAngle, c.turnDeg, 1e-6);
      ASSERT_EQ(ac.stream.size(), 1u) << "the corner sample went into the curve";
      // Along the curve the aircraft reaches the far sample with the heading of the second leg.
      for (int i = 0; i < 1100 && gf_distance(where(ac), p2) > 0.5 * kMetre; ++i) lf_motionStep(ac);
      EXPECT_LT(gf_distance(where(ac), p2), 1.5 * kMetre);
      EXPECT_NEAR(gf_normAngle(ac.heading - gf_bearing(p1, p2)) / kDeg, 0, 1.0);
      continue;
    }
    ASSERT_EQ(ac.stream.size(), 2u);
    // At the corner the next leg starts: a heading error above 3 degrees is turned on the spot.
    ac.lat = p1.lat, ac.lon = p1.lon;
    gv_tick = 1520;
    lf_nextPos(ac);
    EXPECT_FALSE(lf_curveInForce(ac));
    if (c.turnDeg > 3.0) {
      EXPECT_EQ(ac.sharpTurn, 1);
      EXPECT_NEAR(ac.turnAngle, c.turnDeg, 1e-6);
      const double before = ac.heading;
      lf_motionStep(ac);
      EXPECT_GT(gf_normAngle(ac.heading - before), 0) << "turning to the right, the shorter way";
      int ticks = 0;
      while (ticks < 20000 && std::fabs(gf_normAngle(ac.heading - c.turnDeg * kDeg)) > 0.5 * kDeg) {
        lf_motionStep(ac);
        ++ticks;
      }
      EXPECT_LT(ticks, 20000) << "the turn reaches the new heading and stays there";
    } else {
      EXPECT_EQ(ac.sharpTurn, 0);
    }
  }
}

TEST_F(GroundFlight, TheRollRotatesOnlyWhenTheReportsAheadShowTheAircraftFlying) {
  struct Case {
    const char* what;
    double gs0, gsAhead, vsAhead;
    bool airborneAhead, lastOnGround, rotates;
  };
  const Case cases[] = {
      {"120 knots, level", 43, 120, 0, true, false, false},
      {"150 knots, one still on the ground", 43, 150, 0, true, true, false},
      {"149 knots", 43, 149, 0, true, false, false},
      {"150 knots, all airborne", 43, 150, 0, true, false, true},
      {"climbing at 100 knots", 43, 100, 600, true, false, true},
      {"climbing, still on the ground", 43, 100, 600, false, false, true},
      {"first sample below 43 knots", 42.9, 160, 0, true, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    gLiveAc.clear();
    gv_tick = 5000;
    const std::uint32_t id = groundAircraft(kHeavy, kApron, 90);
    LiveAc& ac = live(id);
    ac.takingOff = 1;
    ac.stream.clear();
    ac.stream.push_back(groundSample(kApron, c.gs0, 5000));
    for (int i = 1; i <= 3; ++i) {
      // 60 m apart: short enough that the leg isn't split where the speed changes.
      Sample s = groundSample(gf_destination(kApron, 90 * kDeg, 200.0 * i), c.gsAhead, 5000 + 80 * i);
      s.vs = c.vsAhead;
      s.airborne = c.airborneAhead && !(c.lastOnGround && i == 3);
      s.alt = s.airborne ? 50.0 * i : 0;
      ac.stream.push_back(s);
    }
    lf_nextPos(ac);
    EXPECT_EQ(ac.flightState == kTakeOff, c.rotates);
    if (c.rotates) {
      EXPECT_EQ(ac.stageCount, 250) << "rotateTicks of a Heavy";
      EXPECT_LT(ac.stepPitch, 0) << "the nose rises";
      EXPECT_FALSE(lf_curveInForce(ac));
    }
  }
}

TEST_F(GroundFlight, TheRolloutEndsAtFifteenDegreesOffTheRunwayNotAtFourteenPointNine) {
  struct Case {
    std::int32_t acClass;
    double offDeg;
  };
  for (const Case c : {Case{kLarge, 14.9}, Case{kLarge, 15.0}, Case{kLight, 14.9}, Case{kLight, 15.0}}) {
    SCOPED_TRACE(::testing::Message() << "class " << c.acClass << ", " << c.offDeg << " degrees");
    gLiveAc.clear();
    port.calls.clear();
    gv_tick = 2000;
    const std::uint32_t id = groundAircraft(c.acClass, kApron, 250 + c.offDeg);
    LiveAc& ac = live(id);
    ac.rollout = 1;
    ac.flapsIdx = 3;
    ac.touchdownHeading = 250 * kDeg;
    ac.stream.clear();
    ac.stream.push_back(groundSample(kApron, 80, 2000));
    ac.stream.push_back(groundSample(gf_destination(kApron, ac.heading, 400), 70, 2300));
    lf_nextPos(ac);
    const bool off = c.offDeg >= 15.0;
    EXPECT_EQ(ac.rollout, off ? 0 : 1);
    EXPECT_EQ(ac.flapsIdx, off ? 0 : 1) << "below 90 knots on the runway the flaps go to 1";
    EXPECT_EQ(calls("spoilers"), std::vector<std::string>{"spoilers 0"});
    EXPECT_EQ(calls("levers"),
              c.acClass == kLight ? std::vector<std::string>{} : std::vector<std::string>{"levers 0 0 0"});
    EXPECT_EQ(calls("lights"), off ? std::vector<std::string>{"lights 1101011"} : std::vector<std::string>{});
  }
}

TEST_F(GroundFlight, ATouchDownDeploysSpoilersAndReverseButNotWhileRotatingNorWithoutAnApproach) {
  struct Case {
    const char* what;
    std::int32_t acClass;
    bool reverser, approach;
    std::int32_t flightState;
    bool landed;
    std::vector<std::string> levers;
  };
  const Case cases[] = {
      {"a Large", kLarge, false, true, kFlying, true, {"levers 100 100 100"}},
      {"a Large with reversers", kLarge, true, true, kFlying, true, {"levers 100 -100 -100"}},
      {"a Light", kLight, true, true, kFlying, true, {}},
      {"a rotating Large", kLarge, false, true, kTakeOff, false, {}},
      {"no approach, no flare", kLarge, false, false, kFlying, false, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    gLiveAc.clear();
    gRouteQueue.clear();
    port.calls.clear();
    const std::uint32_t id = groundAircraft(c.acClass, kApron, 70);
    LiveAc& ac = live(id);
    ac.onGround = 0;
    ac.alt = 2;
    ac.flightState = c.flightState;
    ac.approach = c.approach;
    ac.reverser = c.reverser;
    ac.cgHeight = 8;
    ac.pitch = -4 * kDeg;
    lf_onGroundData(ac, true, 350, 0);
    EXPECT_EQ(calls("levers"), c.levers);
    EXPECT_EQ(ac.rollout, c.landed ? 1 : 0);
    EXPECT_EQ(ac.justLanded, c.landed ? 1 : 0);
    EXPECT_EQ(ac.derotating, c.landed ? 1 : 0);
    EXPECT_EQ(calls("spoilers"), c.landed ? std::vector<std::string>{"spoilers 1"} : std::vector<std::string>{});
    EXPECT_EQ(gRouteQueue.size(), c.landed ? 1u : 0u);
    if (c.flightState == kTakeOff) {
      EXPECT_EQ(ac.onGround, 0) << "a rotating aircraft touching the ground isn't landing";
      continue;
    }
    EXPECT_EQ(ac.onGround, 1);
    EXPECT_DOUBLE_EQ(ac.alt, 358) << "on the simulator's ground, the centre of gravity above it";
    if (c.landed) {
      EXPECT_NEAR(ac.touchdownHeading, 70 * kDeg, 1e-12);
    }
  }
}

TEST_F(GroundFlight, TheFlareStartsByTheAirportsHeightOrByAglAloneWhenTheElevationIsUnknown) {
  const std::uint32_t id = groundAircraft(kLarge, kApron, 70);
  LiveAc& ac = live(id);
  ac.onGround = 0;
  ac.approach = 1;
  ac.cgHeight = 8;
  ac.pitch = -2 * kDeg;
  ac.stream.front().vs = -700;
  ac.throttleIdx = 1;
  // No park airport: the simulator's height above ground alone.
  ac.alt = 5000;
  ac.agl = 38.5;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 0);
  EXPECT_DOUBLE_EQ(ac.heightAtAirport, 38.5);
  ac.agl = 38;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 1);
  EXPECT_DOUBLE_EQ(ac.stream.front().vs, -601);
  EXPECT_DOUBLE_EQ(ac.stepAlt, -0.1);
  EXPECT_NEAR(ac.stepPitch, (-4 * kDeg + 2 * kDeg) / 400, 1e-15);
  // The later stages follow the height above ground.
  ac.agl = 28;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 2);
  ac.agl = 18;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 3);
  EXPECT_EQ(calls("throttle"), std::vector<std::string>{"throttle 0"}) << "idle from the third stage";

  // A park airport 1000 ft high: the airport's height starts the flare over high terrain.
  ac.flareStage = 0;
  gParkAirportSite.chosen = true;
  gParkAirportSite.elevationFt = 1000;
  ac.agl = 300;
  ac.alt = 1039;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 0);
  ac.alt = 1038;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 1);
  ac.agl = 29;
  lf_flareStep(ac);
  EXPECT_EQ(ac.flareStage, 1) << "beyond the first stage only the simulator's ground counts";
  EXPECT_FALSE(ac.groundElev.has == 0) << "the airport's elevation is kept until the next stage";
}

}  // namespace
}  // namespace orv::test
