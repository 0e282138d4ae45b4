// How the end of a taxi or a standing report becomes a stand: the fit of an aircraft to a stand,
// the wide search among the stands that the learned options name, helipads, the user's stands,
// and what try2Park hands to the drive onto the stand.
#include <gtest/gtest.h>

#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/reserved_stand.h"
#include "engine/stand_contention.h"
#include "stand_fixture.h"

namespace orv::test {
namespace {

int gLearned = 0;

class StandSearch : public StandTest {
 protected:
  void SetUp() override {
    StandTest::SetUp();
    gLearned = 0;
    gv_countLearnedUpdate.set([] { ++gLearned; });
  }
  void TearDown() override {
    gv_countLearnedUpdate.set(nullptr);
    StandTest::TearDown();
  }
  // An aircraft whose stream ends at (east, north), with two samples.
  LiveAc& taxiing(const std::string& cs, double east, double north, double hwspM = 17.0, std::int32_t cls = kLarge) {
    LiveAc& ac = addLive(cs, east - 30, north, hwspM, cls);
    Sample s = ac.stream.front();
    const LatLon p = apronAt(east, north);
    s.lat = p.lat;
    s.lon = p.lon;
    ac.stream.push_back(s);
    return ac;
  }
};

TEST_F(StandSearch, OnATypeZeroStandAnAircraftMayStickOutByOnePointEightMetresNotOnePointNine) {
  for (double radius : {10.0, 12.0, 20.0, 24.0, 30.0}) {
    Stand s;
    s.radius = radius * kNmPerMetre;
    AcRecord ac;
    ac.hwsp = (radius + 1.8) * kNmPerMetre;
    EXPECT_TRUE(lf_standFits(s, ac)) << radius;
    ac.hwsp = (radius + 1.9) * kNmPerMetre;
    EXPECT_FALSE(lf_standFits(s, ac)) << radius;
  }
}

TEST_F(StandSearch, AStandTypeTakesOnlyItsClassesWhateverTheSpan) {
  struct Case {
    std::uint16_t type;
    std::vector<int> fits;
  };
  const std::vector<Case> cases = {
      {1, {0}}, {2, {0}},     {3, {0, 1, 4}}, {4, {1, 2}}, {5, {2, 3}},  {6, {2, 3}},
      {7, {4}}, {8, {1, 2}},  {9, {2}},       {10, {3}},   {11, {0, 5}}, {12, {0, 1, 2, 3, 4, 5}},
      {13, {}}, {14, {0, 4}}, {15, {2, 3}},   {16, {}},    {40, {}}};
  for (const Case& c : cases) {
    Stand s;
    s.type = c.type;
    s.radius = 1 * kNmPerMetre;  // a typed stand doesn't go by its radius
    for (int cls = 0; cls <= 5; ++cls) {
      AcRecord ac;
      ac.acClass = cls;
      ac.hwsp = 30 * kNmPerMetre;
      const bool expected = std::find(c.fits.begin(), c.fits.end(), cls) != c.fits.end();
      EXPECT_EQ(lf_standFits(s, ac), expected) << "type " << c.type << " class " << cls;
    }
  }
}

TEST_F(StandSearch, TooSmallByItsFileAStandWithinTwentyMetresIsTakenAndItsRadiusLearned) {
  addStand("A1", 0, 0, 20);
  numberStands();
  LiveAc& far = taxiing("DLH1", 0, 21, 21.9);  // 1.9 m too wide, 21 m off
  try2Park(far, false);
  EXPECT_EQ(far.sid, 0);
  try2Park(far, true);  // nor with the wide reach: it fits nothing and isn't close
  EXPECT_EQ(far.sid, 0);
  EXPECT_EQ(gLearned, 0);
  EXPECT_FALSE(stand("A1").radiusChange);

  LiveAc& close = taxiing("DLH2", 0, 19, 21.9);
  try2Park(close, false);
  EXPECT_EQ(close.sid, sid("A1"));
  EXPECT_TRUE(stand("A1").radiusChange);
  EXPECT_NEAR(metres(stand("A1").radius), 20.9, 1e-6) << "the span less one metre";
  EXPECT_EQ(gLearned, 1);

  LiveAc& fits = taxiing("DLH3", 0, 19, 21.8);
  stand("A1").radiusChange = false;
  stand("A1").radius = 20 * kNmPerMetre;
  try2Park(fits, false);
  EXPECT_EQ(fits.sid, sid("A1"));
  EXPECT_FALSE(stand("A1").radiusChange) << "a fitting aircraft teaches nothing";
  EXPECT_EQ(gLearned, 1);
}

TEST_F(StandSearch, TheNearestFittingStandWinsAndANearerTooSmallOneBeyondTwentyMetresIsPassedOver) {
  addStand("SMALL", 0, 0, 5);
  addStand("BIG", 0, 45, 30);
  numberStands();
  LiveAc& ac = taxiing("DLH1", 0, 22);  // 22 m from SMALL, 23 m from BIG
  try2Park(ac, true);
  EXPECT_EQ(ac.sid, sid("BIG"));
  EXPECT_FALSE(stand("SMALL").radiusChange);
}

TEST_F(StandSearch, WideTheSeventyMetreStandOfARealOptionOfTheCallsignIsTaken) {
  Stand& s = addStand("F70", 0, 70, 25);
  StandOpt opt;
  opt.cs = "DLH1";
  opt.acCode.airline = 3;
  opt.number = 1;
  s.opts.push_back(opt);
  numberStands();

  LiveAc& narrow = taxiing("DLH1", 0, 0);
  try2Park(narrow, false);
  EXPECT_EQ(narrow.sid, 0) << "without wide only the limit counts";

  LiveAc& wide = taxiing("DLH1", 0, 0);
  try2Park(wide, true);
  EXPECT_EQ(wide.sid, sid("F70"));

  LiveAc& other = taxiing("KLM7", 0, 0);
  other.code.airline = 4;
  try2Park(other, true);
  EXPECT_EQ(other.sid, 0) << "the option names another flight";

  stand("F70").opts[0].real = 0;
  LiveAc& soft = taxiing("DLH1", 1, 0);
  try2Park(soft, true);
  EXPECT_EQ(soft.sid, 0) << "a soft option is no known user";

  stand("F70").opts[0].real = 1;
  stand("F70").opts[0].number = 0;
  LiveAc& withdrawn = taxiing("DLH1", 2, 0);
  try2Park(withdrawn, true);
  EXPECT_EQ(withdrawn.sid, 0) << "a withdrawn option is no known user";
}

TEST_F(StandSearch, WideAnOptionOfTheSameCodeCountsAndAStandWithinTheLimitWinsOverIt) {
  Stand& s = addStand("F70", 0, 70, 25);
  StandOpt opt;
  opt.acCode.airline = 7;
  opt.acCode.acType = 9;
  opt.number = 1;
  s.opts.push_back(opt);
  numberStands();
  LiveAc& ac = taxiing("XYZ1", 0, 0);
  ac.code.airline = 7;
  ac.code.acType = 9;
  try2Park(ac, true);
  EXPECT_EQ(ac.sid, sid("F70"));
  EXPECT_EQ(stand("F70").opts.size(), 1u);

  addStand("N40", -40, 0, 25);
  numberStands();
  LiveAc& again = taxiing("XYZ1", 1, 0);
  again.code = ac.code;
  try2Park(again, true);
  EXPECT_EQ(again.sid, sid("N40")) << "a stand within 55 m that fits ends the wide search";

  LiveAc& noName = taxiing("", 2, 0);
  noName.code = ac.code;
  gStands.erase(gStands.begin() + 1);
  try2Park(noName, true);
  EXPECT_EQ(noName.sid, 0) << "an aircraft without callsign is nobody's known user";
}

TEST_F(StandSearch, AHelicopterGetsOnlyAHelipadAndAnAeroplaneNeverOneEvenWithinTwentyMetres) {
  addStand("P1", 0, 0, 30, 0);
  Stand& h = addStand("H1", 200, 0, 30, 12);
  h.heli = true;
  numberStands();
  LiveAc& heliOnStand = taxiing("CHX1", 0, 5, 6, kRotorcraft);
  try2Park(heliOnStand, false);
  EXPECT_EQ(heliOnStand.sid, 0);
  LiveAc& planeOnPad = taxiing("DLH1", 200, 5, 17, kLarge);
  try2Park(planeOnPad, false);
  EXPECT_EQ(planeOnPad.sid, 0);
  LiveAc& heliOnPad = taxiing("CHX2", 200, 5, 6, kRotorcraft);
  try2Park(heliOnPad, false);
  EXPECT_EQ(heliOnPad.sid, sid("H1"));
}

TEST_F(StandSearch, Try2ParkHandsTheStandToTheDriveAndCutsTheStream) {
  Stand& s = addStand("B7", 0, 0, 25);
  s.heading = 1.25;
  s.cargo = true;
  numberStands();
  LiveAc& ac = taxiing("DLH1", 3, 10);
  ac.stream.push_back(ac.stream.back());
  ac.stream.back().lat += 1e-5;
  const Sample first = ac.stream.front(), reported = ac.stream.back();
  try2Park(ac, false);
  EXPECT_EQ(ac.sid, sid("B7"));
  EXPECT_EQ(ac.flightState, kParking);
  EXPECT_EQ(ac.prevFlightState, kTaxi);
  EXPECT_DOUBLE_EQ(ac.standLat, s.latitude);
  EXPECT_DOUBLE_EQ(ac.standLon, s.longitude);
  EXPECT_DOUBLE_EQ(ac.standHeading, 1.25);
  EXPECT_EQ(ac.standCargo, 1);
  // The stream is cut to its first sample; the drive's own legs follow it.
  EXPECT_DOUBLE_EQ(ac.stream.front().lat, first.lat);
  for (std::size_t i = 1; i < ac.stream.size(); ++i)
    EXPECT_FALSE(gf_samePosition({ac.stream[i].lat, ac.stream[i].lon}, {reported.lat, reported.lon}))
        << "the reports beyond the first are gone";
}

TEST_F(StandSearch, TheSearchIsNotRepeatedForTheSameReport) {
  addStand("B7", 0, 0, 25);
  numberStands();
  gReservedStand = "B7";
  LiveAc& ac = taxiing("DLH1", 0, 10);
  try2Park(ac, false);
  EXPECT_EQ(ac.sid, 0);
  gReservedStand.clear();
  try2Park(ac, false);
  EXPECT_EQ(ac.sid, 0) << "the same last report";
  ac.stream.back().lat += 2e-5;
  try2Park(ac, false);
  EXPECT_EQ(ac.sid, sid("B7"));
}

TEST_F(StandSearch, AnEmptyStreamIsLoggedAsAnError) {
  addStand("B7", 0, 0, 25);
  numberStands();
  LiveAc& ac = addLive("DLH1", 0, 0);
  ac.stream.clear();
  try2Park(ac, false);
  EXPECT_EQ(ac.sid, 0);
  EXPECT_NE(log.text().find("try2Park empty sz?"), std::string::npos) << log.text();
}

TEST_F(StandSearch, TheReservedStandAndTheUsersStandAreNeverTaken) {
  addStand("R1", 0, 0, 25);
  addStand("U1", 200, 0, 25);
  numberStands();
  gReservedStand = "R1";
  userStandsAt("U1");
  LiveAc& a = taxiing("DLH1", 0, 5);
  LiveAc& b = taxiing("DLH2", 200, 5);
  try2Park(a, true);
  try2Park(b, true);
  EXPECT_EQ(a.sid, 0);
  EXPECT_EQ(b.sid, 0);
  EXPECT_EQ(a.flightState, kTaxi);
  EXPECT_EQ(b.stream.size(), 2u);
}

TEST_F(StandSearch, AnArrivalRemovesTheAircraftStandingThereButNotOneDrivingThere) {
  addStand("B1", 0, 0, 25);
  numberStands();
  addParkedLive("SAS9", "B1");
  LiveAc& driving = taxiing("KLM2", 0, 5);
  try2Park(driving, false);
  LiveAc& arriving = taxiing("DLH1", 0, 5);
  try2Park(arriving, false);
  EXPECT_TRUE(removed(live("SAS9")));
  EXPECT_FALSE(removed(live("KLM2"))) << "between try2Park and arrival the sid alone holds the stand";
  EXPECT_EQ(live("KLM2")->sid, sid("B1"));
  EXPECT_EQ(live("DLH1")->sid, sid("B1"));
  EXPECT_NE(log.text().find("B1      : SAS9     removed, KLM2 wants to park there"), std::string::npos) << log.text();
  EXPECT_EQ(log.text().find("DLH1 wants"), std::string::npos) << "the first arrival already cleared it";
}

TEST_F(StandSearch, AParkingAircraftRemovesALiveNeighbourItWouldTouch) {
  addStand("B1", 0, 0, 25);
  addStand("B2", 40, 0, 25);   // 40 m apart: spans of 17 m and 20 m touch
  addStand("B3", -40, 0, 25);  // a small neighbour there doesn't
  numberStands();
  ASSERT_EQ(stand("B1").adjacent.size(), 2u);
  addParkedLive("SAS9", "B2", 20);
  addParkedLive("SAS8", "B3", 10);
  LiveAc& ac = taxiing("DLH1", 0, 5, 17);
  try2Park(ac, false);
  EXPECT_TRUE(removed(live("SAS9")));
  EXPECT_FALSE(removed(live("SAS8")));
  EXPECT_NE(log.text().find("B2      : SAS9     removed by parking DLH1 at adjacent and possibly colliding stand B1"),
            std::string::npos)
      << log.text();
}

}  // namespace
}  // namespace orv::test
