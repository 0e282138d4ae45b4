#include "foundation/day_and_slot.h"

#include <gtest/gtest.h>

#include "foundation/time_text.h"

namespace orv {
namespace {

// Monday 23 November 2026, 00:00:00 UTC.
constexpr std::time_t kMonday = 1795392000;

TEST(DayAndSlot, HalfHoursTurnAtTwentyNineThirty) {
  EXPECT_EQ(gf_dayAndSlotOf(kMonday), gf_weekSlot(1, 0));
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 10 * 3600 + 29 * 60 + 29), gf_weekSlot(1, 20));
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 10 * 3600 + 29 * 60 + 30), gf_weekSlot(1, 21));
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 10 * 3600 + 59 * 60 + 29), gf_weekSlot(1, 21));
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 10 * 3600 + 59 * 60 + 30), gf_weekSlot(1, 21)) << "only the 29:30 mark counts";
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 23 * 3600 + 59 * 60 + 59), gf_weekSlot(1, 47));
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 6 * 86400 + 3600), gf_weekSlot(7, 2)) << "Sunday is 7, not 0";
  EXPECT_EQ(gf_dayAndSlotOf(kMonday + 7 * 86400), gf_weekSlot(1, 0));
  const WeekSlot s = gf_weekSlot(3, 17);
  EXPECT_EQ(gf_weekdayOf(s), 3u);
  EXPECT_EQ(gf_halfHourOf(s), 17u);
}

TEST(DayAndSlot, FollowsTheFeedClockOnlyWhenRealTrafficSetsIt) {
  gv_feedTimestamp = kMonday + 2 * 86400 + 5 * 3600;  // Wednesday 05:00
  gv_rtProf = true;
  gf_refreshDayAndSlot();
  EXPECT_EQ(gv_dayAndSlot.load(), gf_weekSlot(3, 10));
  gv_rtProf = false;
  gf_refreshDayAndSlot();
  EXPECT_EQ(gv_dayAndSlot.load(), gf_dayAndSlotOf(std::time(nullptr)));
  gv_rtProf = true;
  gv_feedTimestamp = 0;  // no stamp yet: the system clock
  gf_refreshDayAndSlot();
  EXPECT_EQ(gv_dayAndSlot.load(), gf_dayAndSlotOf(std::time(nullptr)));
  gv_rtProf = false;
}

}  // namespace
}  // namespace orv
