// The constants of each aircraft class, row by row against the published table: a slip in one
// figure changes how a whole class flies, and nothing else would show it.
#include "engine/ac_class.h"

#include <gtest/gtest.h>

#include "engine/live_aircraft.h"

namespace orv {
namespace {

void expectRow(std::int32_t acClass, const AcClassTable& want) {
  const AcClassTable& t = gf_classTable(acClass);
  SCOPED_TRACE(acClass);
  EXPECT_DOUBLE_EQ(t.rotatePitchDeg, want.rotatePitchDeg);
  EXPECT_DOUBLE_EQ(t.climbPitchDeg, want.climbPitchDeg);
  EXPECT_DOUBLE_EQ(t.turnRateDegPerTick, want.turnRateDegPerTick);
  EXPECT_DOUBLE_EQ(t.maxClimbStep, want.maxClimbStep);
  EXPECT_DOUBLE_EQ(t.taxiSpeed, want.taxiSpeed);
  EXPECT_EQ(t.flareTicks, want.flareTicks);
  EXPECT_EQ(t.derotateTicks, want.derotateTicks);
  EXPECT_EQ(t.rotateTicks, want.rotateTicks);
  EXPECT_EQ(t.unstickTicks, want.unstickTicks);
  EXPECT_DOUBLE_EQ(t.maxBankDeg, want.maxBankDeg);
  EXPECT_DOUBLE_EQ(t.bankStepDeg, want.bankStepDeg);
  EXPECT_DOUBLE_EQ(t.pitchStepDeg, want.pitchStepDeg);
  EXPECT_DOUBLE_EQ(t.takeOffSpeed, want.takeOffSpeed);
}

TEST(AcClassTables, EveryClassFliesByItsOwnRowAndAnUnknownClassAsLight) {
  expectRow(kLight, {-9, -15, 0.15, 0.5, 5, 250, 250, 100, 200, 40, 0.035, 0.01, 90});
  expectRow(kBuzjets, {-8, -18, 0.10, 0.75, 4.5, 300, 300, 200, 250, 35, 0.0275, 0.0085, 110});
  expectRow(kLarge, {-6, -16.5, 0.07, 0.6, 4, 400, 350, 200, 300, 30, 0.02, 0.0075, 140});
  expectRow(kHeavy, {-5, -12.5, 0.05, 0.5, 3, 450, 450, 250, 400, 20, 0.015, 0.005, 150});
  expectRow(kHighPerf, {-6, -20, 0.10, 1.0, 4.5, 150, 150, 100, 200, 90, 0.1, 0.03, 220});
  expectRow(kRotorcraft, {-20, -30, 0.20, 0.75, 5, 100, 100, 100, 100, 75, 0.06, 0.03, 0});
  expectRow(6, gf_classTable(kLight));
  expectRow(-1, gf_classTable(kLight));
}

}  // namespace
}  // namespace orv
