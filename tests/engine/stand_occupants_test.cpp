// Who keeps a stand when the feed reports a newcomer there at spawn: the same callsign, ghosts
// both ways, two callsigns with and without confirmation, neighbours; and how static aircraft
// make way for a live one and leave the user's reserved stand.
#include <gtest/gtest.h>

#include "engine/engine_tables.h"
#include "engine/park_airport_site.h"
#include "engine/reserved_stand.h"
#include "engine/stand_contention.h"
#include "stand_fixture.h"

namespace orv::test {
namespace {

class StandOccupants : public StandTest {
 protected:
  void SetUp() override {
    StandTest::SetUp();
    addStand("C1", 0, 0, 25);
    addStand("C2", 40, 0, 25);
    addStand("C9", 400, 0, 25);
    numberStands();
  }
  // A newcomer in the buffer that the feed reports standing at (east, north).
  LiveAc& newcomer(const std::string& cs, double east, double north) {
    LiveAc ac;
    ac.cs = cs;
    ac.hexid = 90000 + static_cast<std::uint32_t>(gLiveAc.size());
    ac.hwsp = 17 * kNmPerMetre;
    ac.acClass = kLarge;
    Sample s;
    const LatLon p = apronAt(east, north);
    s.lat = p.lat;
    s.lon = p.lon;
    s.stopped = 1;
    ac.stream.push_back(s);
    ac.stream.push_back(s);
    return gLiveAc[gf_addLiveAc(std::move(ac))];
  }
  bool has(const std::string& text) { return log.text().find(text) != std::string::npos; }
};

TEST_F(StandOccupants, AFreeStandIsTheNewcomersAtItsPosition) {
  LiveAc& ac = newcomer("DLH1", 3, 4);
  const auto got = lf_standAtSpawn(ac);
  ASSERT_TRUE(got.has_value());
  EXPECT_EQ(got->sid, sid("C1"));
  EXPECT_DOUBLE_EQ(got->lat, stand("C1").latitude);
  EXPECT_EQ(ac.erase, 0);
}

TEST_F(StandOccupants, WithoutAParkAirportOrFarFromItThereIsNoStand) {
  LiveAc& ac = newcomer("DLH1", 3, 4);
  gParkAirportSite.lat += 5.1 / 60;  // 5.1 nm north
  EXPECT_FALSE(lf_standAtSpawn(ac).has_value());
  gParkAirportSite.lat -= 0.2 / 60;
  EXPECT_TRUE(lf_standAtSpawn(ac).has_value());
  gParkAirportSite.chosen = false;
  EXPECT_FALSE(lf_standAtSpawn(ac).has_value());
}

TEST_F(StandOccupants, RollingSlowlyIntoTheStandCountsAsStandingAtTheEndOfTheBuffer) {
  LiveAc& ac = newcomer("DLH1", 0, -30);
  ac.stream[0].stopped = 0;
  ac.stream[1].gs = 5;
  const LatLon end = apronAt(0, 2);
  ac.stream[1].lat = end.lat;
  ac.stream[1].lon = end.lon;  // 32 m on: within the 35 m of the end of the stream
  const auto got = lf_standAtSpawn(ac);
  ASSERT_TRUE(got.has_value());
  EXPECT_EQ(got->sid, sid("C1"));
  EXPECT_EQ(ac.stream[0].stopped, 1);
  EXPECT_EQ(ac.stream[0].gs, 0);

  LiveAc& fast = newcomer("DLH2", 400, -30);
  fast.stream[0].stopped = 0;
  fast.stream[1].gs = 6;
  const LatLon end2 = apronAt(400, 2);
  fast.stream[1].lat = end2.lat;
  fast.stream[1].lon = end2.lon;
  EXPECT_FALSE(lf_standAtSpawn(fast).has_value()) << "6 knots is taxiing";
  fast.stream[1].gs = 4;
  const LatLon far = apronAt(400, 6);  // 36 m on
  fast.stream[1].lat = far.lat;
  fast.stream[1].lon = far.lon;
  EXPECT_FALSE(lf_standAtSpawn(fast).has_value()) << "beyond 35 m it is still on its way";
}

TEST_F(StandOccupants, ARecordOnTheReservedOrTheUsersStandLivesOnWithoutAStand) {
  gReservedStand = "C1";
  LiveAc& a = newcomer("DLH1", 0, 3);
  EXPECT_FALSE(lf_standAtSpawn(a).has_value());
  EXPECT_EQ(a.erase, 0);
  userStandsAt("C9");
  LiveAc& b = newcomer("DLH2", 400, 3);
  EXPECT_FALSE(lf_standAtSpawn(b).has_value());
  EXPECT_EQ(b.erase, 0);
}

TEST_F(StandOccupants, TheSameCallsignReplacesTheOccupant) {
  addParkedLive("DLH1", "C1");
  LiveAc& ac = newcomer("DLH1", 0, 3);
  EXPECT_TRUE(lf_standAtSpawn(ac).has_value());
  EXPECT_TRUE(removed(&gLiveAc[0]));
  EXPECT_TRUE(has("C1      : DLH1     ac with same callsign DLH1 wants it, remove existing ... ")) << log.text();
}

TEST_F(StandOccupants, ThePlainCallsignReplacesItsGhostAndAGhostNeverItsOwner) {
  addParkedLive("ABC123_", "C1");
  LiveAc& owner = newcomer("ABC123", 0, 3);
  EXPECT_TRUE(lf_standAtSpawn(owner).has_value());
  EXPECT_TRUE(removed(live("ABC123_")));
  EXPECT_TRUE(has("C1      : ABC123_  ghost, replace by ABC123")) << log.text();

  addParkedLive("XYZ9", "C9");
  LiveAc& ghost = newcomer("XYZ9_", 400, 3);
  EXPECT_FALSE(lf_standAtSpawn(ghost).has_value());
  EXPECT_EQ(ghost.erase, 1) << "the ghost isn't shown";
  EXPECT_FALSE(removed(live("XYZ9")));
}

TEST_F(StandOccupants, AnyGhostGivesWayToAPlainCallsignAndAGhostNewcomerToAPlainOccupant) {
  addParkedLive("KLM5_", "C1");
  LiveAc& plain = newcomer("DLH7", 0, 3);
  EXPECT_TRUE(lf_standAtSpawn(plain).has_value());
  EXPECT_TRUE(removed(live("KLM5_")));
  EXPECT_TRUE(has("C1      : KLM5_    ghost, replace by DLH7")) << log.text();

  LiveAc& occupant = addParkedLive("SAS1", "C9");
  occupant.standConfirmed = 0;
  LiveAc& ghost = newcomer("AFR2_", 400, 3);
  EXPECT_FALSE(lf_standAtSpawn(ghost).has_value());
  EXPECT_EQ(ghost.erase, 1);
  EXPECT_FALSE(removed(live("SAS1")));
}

TEST_F(StandOccupants, TwoCallsignsTheConfirmedOccupantStaysTheUnconfirmedOneGoes) {
  LiveAc& confirmed = addParkedLive("SAS1", "C1");
  confirmed.standConfirmed = 1;
  LiveAc& a = newcomer("DLH1", 0, 3);
  EXPECT_FALSE(lf_standAtSpawn(a).has_value());
  EXPECT_EQ(a.erase, 1);
  EXPECT_FALSE(removed(live("SAS1")));

  addParkedLive("SAS2", "C9");
  LiveAc& b = newcomer("DLH2", 400, 3);
  EXPECT_TRUE(lf_standAtSpawn(b).has_value());
  EXPECT_EQ(b.erase, 0);
  EXPECT_TRUE(removed(live("SAS2")));
  EXPECT_TRUE(has("C9      : SAS2     removed because another live DLH2 wants the stand ...")) << log.text();
}

TEST_F(StandOccupants, AnOccupantThatTaxisOrIsNotYetShownHoldsNothing) {
  LiveAc& taxi = addParkedLive("SAS1", "C1");
  gf_setFlightState(taxi, kTaxi);
  taxi.standConfirmed = 1;
  EXPECT_TRUE(lf_standFree(sid("C1"), "DLH1"));
  LiveAc& adding = addParkedLive("SAS2", "C9");
  adding.simState = kAdding2Sim;
  adding.standConfirmed = 1;
  EXPECT_TRUE(lf_standFree(sid("C9"), "DLH2"));
  EXPECT_FALSE(removed(live("SAS1")));
  LiveAc& pushing = addParkedLive("SAS3", "C2");
  gf_setFlightState(pushing, kPushedBack);
  pushing.standConfirmed = 1;
  EXPECT_FALSE(lf_standFree(sid("C2"), "DLH3")) << "a pushed-back aircraft still holds it";
}

TEST_F(StandOccupants, ANewcomerThatWouldTouchALiveNeighbourIsNotShown) {
  addParkedLive("SAS1", "C2", 20);
  LiveAc& ac = newcomer("DLH1", 0, 3);
  EXPECT_FALSE(lf_standAtSpawn(ac).has_value());
  EXPECT_EQ(ac.erase, 1);
  EXPECT_FALSE(removed(live("SAS1")));

  live("SAS1")->hwsp = 10 * kNmPerMetre;  // (10 + 17) x 1.1 < 40 m
  LiveAc& again = newcomer("DLH2", 0, 3);
  EXPECT_TRUE(lf_standAtSpawn(again).has_value());

  live("SAS1")->hwsp = 20 * kNmPerMetre;
  LiveAc& same = newcomer("SAS1", 0, 3);
  EXPECT_TRUE(lf_adjacentFree(stand("C2").number, same, stand("C1"))) << "its own callsign is no neighbour";
  EXPECT_TRUE(lf_adjacentFree(0, same, stand("C1")));
  EXPECT_TRUE(lf_adjacentFree(77, same, stand("C1")));
}

TEST_F(StandOccupants, AStaticAircraftOnTheStandMakesWayAndSaysWhenItIsTheSameAircraft) {
  addStatic("KLM1*", "C1", "PH-BXA");
  addStatic("KLM2*", "C9", "PH-BXB");
  LiveAc& ac = newcomer("DLH1", 0, 3);
  ac.reg = "D-AIBA";
  ASSERT_TRUE(lf_standAtSpawn(ac).has_value());
  EXPECT_TRUE(removed(statik("KLM1*")));
  EXPECT_TRUE(has("C1      : KLM1*    PH-BXA makes way for DLH1 D-AIBA")) << log.text();

  LiveAc& twin = newcomer("KLM2", 400, 3);
  twin.reg = "PH-BXB";
  ASSERT_TRUE(lf_standAtSpawn(twin).has_value());
  EXPECT_TRUE(has("C9      : KLM2*    PH-BXB makes way for the same live version KLM2 PH-BXB")) << log.text();
}

TEST_F(StandOccupants, AQueuedStaticIsCancelledOrRemovedOnceCreated) {
  AcRecord& queued = addStatic("KLM1*", "C1", "PH-BXA");
  queued.simState = kAdding2Sim;
  AddRequest r;
  r.callsign = "KLM1*";
  gParkedAddQueue.push_back(r);
  AcRecord& creating = addStatic("KLM2*", "C9", "PH-BXB");
  creating.simState = kAdding2Sim;

  LiveAc& a = newcomer("DLH1", 0, 3);
  lf_staticsMakeWay(a, stand("C1"));
  EXPECT_EQ(statik("KLM1*"), nullptr) << "the cancelled record leaves the table";
  EXPECT_TRUE(gParkedAddQueue.empty());
  EXPECT_TRUE(has("queued C1      : KLM1*    PH-BXA makes way for DLH1 ")) << log.text();

  lf_staticsMakeWay(a, stand("C9"));
  ASSERT_NE(statik("KLM2*"), nullptr);
  EXPECT_EQ(statik("KLM2*")->removeWhenCreated, 1);
}

TEST_F(StandOccupants, OneTouchingStaticNeighbourPerStandMakesWay) {
  addStatic("KLM1*", "C2", "", 20);
  addStatic("KLM2*", "C2", "", 20);  // a second on the same neighbour waits for the next time
  LiveAc& ac = newcomer("DLH1", 0, 3);
  lf_staticsMakeWay(ac, stand("C1"));
  EXPECT_TRUE(removed(statik("KLM1*")));
  EXPECT_FALSE(removed(statik("KLM2*")));
  EXPECT_TRUE(has("C2      : KLM1*    makes way for DLH1 parking at excluded stand C1")) << log.text();

  statik("KLM2*")->hwsp = 10 * kNmPerMetre;
  lf_staticsMakeWay(ac, stand("C1"));
  EXPECT_FALSE(removed(statik("KLM2*"))) << "it doesn't touch";
}

TEST_F(StandOccupants, TheReservedStandIsClearedOfStaticsFirstThenOfLiveAircraft) {
  addStatic("KLM1*", "C1");
  addStatic("KLM2*", "C1");
  addParkedLive("DLH1", "C1");
  LiveAc& leaving = addParkedLive("DLH2", "C1");
  gf_setFlightState(leaving, kTaxi);
  lf_keepStandFree("C1");
  EXPECT_TRUE(removed(statik("KLM1*")));
  EXPECT_FALSE(removed(statik("KLM2*")));
  EXPECT_FALSE(removed(live("DLH1")));
  lf_keepStandFree("C1");
  lf_keepStandFree("C1");
  EXPECT_TRUE(removed(statik("KLM2*")));
  EXPECT_TRUE(removed(live("DLH1")));
  EXPECT_FALSE(removed(live("DLH2"))) << "only a parked one";
  lf_keepStandFree("NOPE");
  lf_keepStandFree("");
}

}  // namespace
}  // namespace orv::test
