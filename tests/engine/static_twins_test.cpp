// A flight that is both live and static: the static one goes when the route queue reaches the
// live aircraft, or at the latest with the sweep; and the second callsign of a flight is found
// in the learned options.
#include <gtest/gtest.h>

#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "stand_fixture.h"

namespace orv::test {
namespace {

class StaticTwins : public StandTest {
 protected:
  void SetUp() override {
    StandTest::SetUp();
    addStand("D2", 0, 0, 25);
    addStand("D4", 400, 0, 25);
    numberStands();
  }
};

TEST_F(StaticTwins, TheSweepRemovesTheStaticWithTheRegistrationOfALiveAircraftOnTheGround) {
  addStatic("KLM1*", "D2", "PH-BXA");
  addStatic("KLM2*", "D4", "PH-BXB");
  LiveAc& air = addLive("KLM1", 3000, 0);
  air.reg = "PH-BXA";
  air.onGround = 0;
  lf_sweepStaticTwins();
  EXPECT_FALSE(removed(statik("KLM1*"))) << "still in the air";
  air.onGround = 1;
  LiveAc& other = addLive("KLM9", 3000, 0);
  other.reg = "PH-BXB";
  lf_sweepStaticTwins();
  EXPECT_TRUE(removed(statik("KLM1*")));
  EXPECT_FALSE(removed(statik("KLM2*"))) << "one per sweep";
  lf_sweepStaticTwins();
  EXPECT_TRUE(removed(statik("KLM2*")));
}

TEST_F(StaticTwins, TheSweepMatchesAStarredCallsignAndNeverEmptyRegistrations) {
  addStatic("DLH4*", "D2");
  addStatic("DLH5", "D4");
  addLive("DLH5", 3000, 0);
  addLive("DLH44", 3000, 0);
  lf_sweepStaticTwins();
  EXPECT_FALSE(removed(statik("DLH4*")));
  EXPECT_FALSE(removed(statik("DLH5"))) << "only a starred static is a twin by callsign";
  addLive("DLH4", 3000, 0);
  lf_sweepStaticTwins();
  EXPECT_TRUE(removed(statik("DLH4*")));
}

TEST_F(StaticTwins, TheRouteQueueEntryRemovesTheTwinByRegistrationOrEitherCallsign) {
  AcRecord& byReg = addStatic("X1*", "D2", "D-AIBA");
  AcRecord& byCs2 = addStatic("X2*", "D4");
  byCs2.cs2 = "DLH401";
  LiveAc& ac = addLive("DLH400_", 3000, 0);
  ac.reg = "D-AIBA";
  lf_dropStaticTwin(ac);
  EXPECT_TRUE(removed(statik("X1*")));
  EXPECT_FALSE(removed(statik("X2*")));
  ac.reg = "D-XXXX";
  lf_dropStaticTwin(ac);
  EXPECT_FALSE(removed(statik("X2*"))) << "no name in common";
  ac.cs2 = "DLH401";
  lf_dropStaticTwin(ac);
  EXPECT_TRUE(removed(statik("X2*")));
  (void)byReg;

  AcRecord& plain = addStatic("X3*", "D2");
  plain.cs1 = "DLH400";
  ac.cs2.clear();
  lf_dropStaticTwin(ac);
  EXPECT_TRUE(removed(statik("X3*"))) << "the callsign without its ghost mark";
}

TEST_F(StaticTwins, EmptyNamesMatchNothing) {
  addStatic("X1*", "D2");
  LiveAc& ac = addLive("DLH400", 3000, 0);
  lf_dropStaticTwin(ac);
  EXPECT_FALSE(removed(statik("X1*")));
  ac.cs.clear();
  ac.reg.clear();
  lf_dropStaticTwin(ac);
  EXPECT_FALSE(removed(statik("X1*")));
}

TEST_F(StaticTwins, TheSecondCallsignIsFoundWithinTenHalfHoursOnTheSameDay) {
  StandOpt o;
  o.number = 1;
  o.day = 3;
  o.acCode.airline = 5;
  o.cs = "DLH400";
  o.cs2 = "DLH401";
  o.hours = std::uint64_t{1} << 30;
  stand("D2").opts.push_back(o);
  LiveAc& ac = addLive("DLH401_", 3000, 0);
  ac.code.airline = 5;
  lf_lookUpFlight(gf_weekSlot(3, 40), ac);
  EXPECT_EQ(ac.cs1, "DLH400");
  EXPECT_EQ(ac.cs2, "DLH401");

  LiveAc& late = addLive("DLH400", 3000, 0);
  late.code.airline = 5;
  lf_lookUpFlight(gf_weekSlot(3, 41), late);
  EXPECT_TRUE(late.cs1.empty()) << "11 half hours later";
  late.acClass = kHeavy;
  lf_lookUpFlight(gf_weekSlot(3, 44), late);
  EXPECT_EQ(late.cs2, "DLH401") << "a heavy looks 14 half hours about";

  LiveAc& otherDay = addLive("DLH400", 3000, 0);
  otherDay.code.airline = 5;
  lf_lookUpFlight(gf_weekSlot(4, 30), otherDay);
  EXPECT_TRUE(otherDay.cs2.empty());
  LiveAc& otherAirline = addLive("DLH400", 3000, 0);
  otherAirline.code.airline = 6;
  lf_lookUpFlight(gf_weekSlot(3, 30), otherAirline);
  EXPECT_TRUE(otherAirline.cs2.empty());
}

}  // namespace
}  // namespace orv::test
