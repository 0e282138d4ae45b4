#include <gtest/gtest.h>

#include <vector>

#include "foundation/shown_value.h"

namespace orv {
namespace {

std::vector<ShownBand> gRepainted;
void recordRepaint(ShownBand band) { gRepainted.push_back(band); }

class ShownValueTest : public testing::Test {
 protected:
  void SetUp() override { gRepainted.clear(); }
  void TearDown() override { gf_repaint.set(nullptr); }
};

TEST_F(ShownValueTest, UntilTheHookIsSetAChangeRepaintsNothing) {
  gf_repaint.set(nullptr);
  ShownValue<int, ShownBand::Status> value{0};
  ShownText<ShownBand::ParkAirport> text;
  EXPECT_TRUE(value.show(4));
  EXPECT_TRUE(text.show("EDDF"));
  EXPECT_EQ(value.load(), 4);
  EXPECT_EQ(text.load(), "EDDF");

  gf_repaint.set(recordRepaint);
  EXPECT_TRUE(value.show(5));
  EXPECT_FALSE(value.show(5));
  EXPECT_TRUE(text.show("EDDM"));
  EXPECT_TRUE(text.store("EDDH"));  // a store alone never repaints
  EXPECT_EQ(gRepainted, (std::vector<ShownBand>{ShownBand::Status, ShownBand::ParkAirport}));
}

}  // namespace
}  // namespace orv
