// Moving report times to the present, field 14 of a traffic line and nothing else.
#include <gtest/gtest.h>

#include "timestamp_shift.h"

namespace orv::standin {
namespace {

const std::string kLine =
    "RTTFC,3951402,50.064487,8.684970,1600,-832,0,249.0,160.5,DLH401,B748,D-ABYJ,JFK,FRA,1718020801.53,X2,LH401,"
    "adsb_icao,1725,150,160,0.250,0.00,0,246.26,249.76,-832,none,A5";

TEST(TimestampShift, OnlyFieldFourteenChangesAndKeepsItsDecimals) {
  const std::string shifted = shiftTimestamp(kLine, 77411617.25);
  EXPECT_EQ(shifted, std::string(kLine).replace(kLine.find("1718020801.53"), 13, "1795432418.78"));
  ASSERT_TRUE(reportTimestamp(shifted));
  EXPECT_NEAR(*reportTimestamp(shifted), 1795432418.78, 1e-6);

  // Whole seconds stay whole; a field 14 at the end of a short line works too.
  EXPECT_EQ(shiftTimestamp("a,b,c,d,e,f,g,h,i,j,k,l,m,n,100", 0.6), "a,b,c,d,e,f,g,h,i,j,k,l,m,n,101");
  EXPECT_EQ(shiftTimestamp("a,b,c,d,e,f,g,h,i,j,k,l,m,n,100.000,p", -0.5), "a,b,c,d,e,f,g,h,i,j,k,l,m,n,99.500,p");

  // Lines that have no readable field 14 go out unchanged: broken lines stay broken.
  for (std::string_view line : {"garbage", "a,b,c,d,e,f,g,h,i,j,k,l,m,n", "a,b,c,d,e,f,g,h,i,j,k,l,m,n,,p",
                                "a,b,c,d,e,f,g,h,i,j,k,l,m,n,12x,p", R"({"QNH":1018})"})
    EXPECT_EQ(shiftTimestamp(line, 100.0), line);
}

TEST(TimestampShift, EpochOfARecordingAndTheShiftThatKeepsEachReportsAge) {
  Recording recording;
  recording.datagrams = {
      {0.5, kWeatherPort, R"({"QNH":1018})"},
      {1.0, kTrafficPort, "a,b,c,d,e,f,g,h,i,j,k,l,m,n,1000.0"},  // 1.0 s old on arrival
      {3.0, kTrafficPort, "a,b,c,d,e,f,g,h,i,j,k,l,m,n,1002.5"},  // the freshest, 0.5 s old
      {4.0, kTrafficPort, "garbage"},
  };
  ASSERT_TRUE(recordingEpoch(recording));
  EXPECT_DOUBLE_EQ(*recordingEpoch(recording), 999.5);
  recording.epoch = 998.0;  // an epoch line wins over the estimate
  EXPECT_DOUBLE_EQ(*recordingEpoch(recording), 998.0);
  EXPECT_FALSE(recordingEpoch(Recording{}));

  // Played at any pace, a report sent now is as old as it was when it arrived (at epoch 1000).
  EXPECT_DOUBLE_EQ(1000.0 + shiftFor(1000.0, 1.0, 5000.0), 4999.0);
  EXPECT_DOUBLE_EQ(1002.5 + shiftFor(1000.0, 3.0, 5000.0), 4999.5);
}

}  // namespace
}  // namespace orv::standin
