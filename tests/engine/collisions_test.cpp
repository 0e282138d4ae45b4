// The collision rules: the envelope ahead of the user in the air, the user on the ground among
// live and static aircraft, and live aircraft moving into static ones. One goes per run.
#include <gtest/gtest.h>

#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "engine/user_snapshot.h"
#include "stand_fixture.h"

namespace orv::test {
namespace {

constexpr double kDeg = 3.14159265358979323846 / 180.0;
constexpr double kMetresPerNm = 1852.0;

class Collisions : public StandTest {
 protected:
  void SetUp() override {
    StandTest::SetUp();
    const LatLon u = apronAt(0, 0);
    gUserSnapshot.lat = u.lat;
    gUserSnapshot.lon = u.lon;
    gUserSnapshot.alt = 5000;
    gUserSnapshot.agl = 5000;
  }
  // An aircraft `nm` north of the user at `alt`, on `headingDeg`.
  LiveAc& north(const std::string& cs, double nm, double alt, double headingDeg) {
    LiveAc& ac = addLive(cs, 0, nm * kMetresPerNm);
    ac.alt = alt;
    ac.heading = headingDeg * kDeg;
    ac.onGround = 0;
    return ac;
  }
};

TEST_F(Collisions, TheUserAirEnvelopeEdges) {
  EXPECT_TRUE(lf_collisionTest(north("IN", 1, 5999, 6), kEnvelopeUserAir));
  EXPECT_TRUE(removed(live("IN")));
  EXPECT_FALSE(lf_collisionTest(north("WIDE", 1, 5000, 7), kEnvelopeUserAir)) << "700 ft to the side at 6.6 degrees";
  EXPECT_FALSE(removed(live("WIDE")));
  EXPECT_TRUE(lf_collisionTest(north("LOW", 3.99, 4001, 0), kEnvelopeUserAir));
  EXPECT_FALSE(lf_collisionTest(north("LOWER", 3.99, 4000, 0), kEnvelopeUserAir)) << "1000 ft apart";
  EXPECT_FALSE(lf_collisionTest(north("FAR", 4.01, 5000, 0), kEnvelopeUserAir));
  EXPECT_FALSE(lf_collisionTest(north("BACK", 1, 5000, 180), kEnvelopeUserAir)) << "on the other side of the line";
  EXPECT_TRUE(lf_collisionTest(north("WIDER", 5.9, 7900, 5), kEnvelopeSpawnHold));
}

TEST_F(Collisions, TheSpawnEnvelopeTakesTheFirstSampleAsThePosition) {
  LiveAc& ac = north("SPAWN", 20, 5000, 0);
  ac.simState = kBuffer;
  ac.stream.front().alt = 5500;
  EXPECT_FALSE(lf_insideUserAirEnvelope(ac, {ac.lat, ac.lon}));
  EXPECT_TRUE(lf_insideUserAirEnvelope(ac, apronAt(0, 5 * kMetresPerNm)));
  ac.stream.front().alt = 8000;
  EXPECT_FALSE(lf_insideUserAirEnvelope(ac, apronAt(0, 5 * kMetresPerNm)));
  EXPECT_EQ(ac.simState, kBuffer) << "the caller decides what happens";
}

TEST_F(Collisions, InTheAirOneAircraftGoesPerRun) {
  north("A", 1, 5000, 0);
  north("B", 2, 5000, 0);
  lf_collisionUserAir();
  EXPECT_TRUE(removed(live("A")));
  EXPECT_FALSE(removed(live("B")));
  lf_collisionUserAir();
  EXPECT_TRUE(removed(live("B")));
}

TEST_F(Collisions, LowOverTheGroundAnAircraftOnTheNoseLineGoesAndTheRunGoesOn) {
  gUserSnapshot.agl = 300;
  gUserSnapshot.alt = 300;
  gUserSnapshot.heading = 0;
  LiveAc& onLine = addLive("LINE", 12, 0.5 * kMetresPerNm);  // 12 m = 39 ft off the nose line
  onLine.heading = 180 * kDeg;
  LiveAc& beside = addLive("SIDE", 17, 0.5 * kMetresPerNm);  // 56 ft off
  beside.heading = 180 * kDeg;
  north("AIR", 1, 300, 0);
  lf_collisionUserAir();
  EXPECT_TRUE(removed(live("LINE")));
  EXPECT_FALSE(removed(live("SIDE")));
  EXPECT_TRUE(removed(live("AIR"))) << "the nose line rule doesn't end the run";

  gUserSnapshot.agl = 600;
  LiveAc& high = addLive("HIGH", 0, 0.5 * kMetresPerNm);
  high.heading = 180 * kDeg;
  lf_collisionUserAir();
  EXPECT_FALSE(removed(live("HIGH")));
}

TEST_F(Collisions, OnTheGroundTheUserRemovesOneTouchingLiveAircraftPerRun) {
  gv_userHalfWingSpan = 15 * kNmPerMetre;
  addLive("NEAR1", 0, 36);  // (15 + 17) x 1.15 = 36.8 m
  addLive("NEAR2", 0, -36);
  addLive("CLEAR", 38, 0);
  lf_collisionUserGnd();
  EXPECT_TRUE(removed(live("NEAR1")));
  EXPECT_FALSE(removed(live("NEAR2")));
  lf_collisionUserGnd();
  EXPECT_TRUE(removed(live("NEAR2")));
  lf_collisionUserGnd();
  EXPECT_FALSE(removed(live("CLEAR")));
}

TEST_F(Collisions, OnTheGroundStaticAircraftAreCheckedOnlyWhenTheUserHasMoved) {
  gv_userHalfWingSpan = 15 * kNmPerMetre;
  addStand("S1", 0, 35, 25);  // (17 + 15) x 1.1 = 35.2 m
  addStand("S2", 0, -35, 25);
  addStand("S3", 36, 0, 25);
  numberStands();
  addStatic("ST1", "S1");
  lf_collisionUserGnd();
  EXPECT_TRUE(removed(statik("ST1")));
  addStatic("ST2", "S2");
  addStatic("ST3", "S3");
  lf_collisionUserGnd();
  EXPECT_FALSE(removed(statik("ST2"))) << "the user stands still";
  gUserSnapshot.lat += 2e-8;
  lf_collisionUserGnd();
  EXPECT_TRUE(removed(statik("ST2")));
  gUserSnapshot.lat += 2e-8;
  lf_collisionUserGnd();
  EXPECT_FALSE(removed(statik("ST3")));
}

TEST_F(Collisions, ALiveAircraftMovingOnTheGroundRemovesAStaticInItsWay) {
  addStand("S1", 0, 0, 25);
  addStand("S2", 200, 0, 25);
  numberStands();
  addStatic("KLM1*", "S1");
  addStatic("DLH1", "S2");
  LiveAc& ac = addLive("DLH1", 0, 30);  // (17 + 17) x 1.1 = 37.4 m
  lf_collisionLiveParked();
  EXPECT_TRUE(removed(statik("KLM1*")));
  EXPECT_DOUBLE_EQ(ac.checkedLat, ac.lat);

  addStatic("KLM2*", "S1");
  lf_collisionLiveParked();
  EXPECT_FALSE(removed(statik("KLM2*"))) << "it hasn't moved since";

  const LatLon p = apronAt(200, 30);
  ac.lat = p.lat;
  ac.lon = p.lon;
  lf_collisionLiveParked();
  EXPECT_FALSE(removed(statik("DLH1"))) << "its own static callsign";

  LiveAc& rolling = addLive("SAS1", 0, 20);
  rolling.rollout = 1;
  LiveAc& parked = addLive("SAS2", 5, 20);
  gf_setFlightState(parked, kParked);
  lf_collisionLiveParked();
  EXPECT_FALSE(removed(statik("KLM2*"))) << "on the runway or parked, no static is in the way";
  EXPECT_DOUBLE_EQ(rolling.checkedLat, 0.0);
  rolling.rollout = 0;
  lf_collisionLiveParked();
  EXPECT_TRUE(removed(statik("KLM2*")));
}

}  // namespace
}  // namespace orv::test
