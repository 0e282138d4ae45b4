// Ghosts: the owner's arrival removes its ghost for good, and a ghost is shown only while no
// owner is there.
#include <gtest/gtest.h>

#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "stand_fixture.h"

namespace orv::test {
namespace {

using Ghosts = StandTest;

TEST_F(Ghosts, TheOwnerRemovesItsGhostWhichMayNotComeBack) {
  addLive("ABC123_", 0, 0);
  addLive("ABC12", 50, 0);
  lf_removeGhostOf("ABC123");
  EXPECT_TRUE(removed(live("ABC123_")));
  EXPECT_FALSE(removed(live("ABC12")));
  ASSERT_EQ(gGhostList.size(), 1u);
  EXPECT_EQ(gGhostList[0], "ABC123_");
  EXPECT_NE(log.text().find("          ABC123_  is a ghost and will be removed, continue with ABC123"),
            std::string::npos)
      << log.text();
}

TEST_F(Ghosts, AGhostAtAStandIsNamedWithItsStand) {
  addStand("E5", 0, 0, 25);
  numberStands();
  addParkedLive("DLH4_", "E5");
  lf_removeGhostOf("DLH4");
  EXPECT_TRUE(removed(live("DLH4_")));
  EXPECT_NE(log.text().find("E5      : DLH4_    is a ghost and will be removed, continue with DLH4"), std::string::npos)
      << log.text();
}

TEST_F(Ghosts, AGhostOnItsWayOutIsLeftAloneAndAGhostOfAGhostIsNoneOfOurs) {
  LiveAc& going = addLive("ABC123_", 0, 0);
  going.simState = kRemovingFromSim;
  lf_removeGhostOf("ABC123");
  EXPECT_TRUE(gGhostList.empty());
  addLive("ABC1", 0, 0);
  lf_removeGhostOf("ABC");
  EXPECT_FALSE(removed(live("ABC1")));
  EXPECT_TRUE(gGhostList.empty());
}

TEST_F(Ghosts, AGhostHasAnOwnerOnlyWhileTheOwnerIsNotLeaving) {
  EXPECT_FALSE(lf_hasGhostOwner("ABC123_"));
  LiveAc& owner = addLive("ABC123", 0, 0);
  owner.simState = kBuffer;
  EXPECT_TRUE(lf_hasGhostOwner("ABC123_")) << "an owner in the buffer counts";
  EXPECT_FALSE(lf_hasGhostOwner("ABC123")) << "a plain callsign is no ghost";
  EXPECT_FALSE(lf_hasGhostOwner("ABC12_"));
  EXPECT_FALSE(lf_hasGhostOwner("_"));
  owner.simState = kRemovingFromSim;
  EXPECT_FALSE(lf_hasGhostOwner("ABC123_"));
}

}  // namespace
}  // namespace orv::test
