// The code tables: their indexes are 16 bits, and a feed may bring any number of new codes.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "refdata/code_tables.h"

namespace orv {
namespace {

TEST(CodeTables, AFullTableTakesNoMoreCodesAndItsIndexesNeverWrap) {
  gf_resetCodeTables();
  constexpr std::size_t kRoom = std::numeric_limits<uint16_t>::max();  // besides the empty text at 0
  for (std::size_t i = 0; i < kRoom; ++i) {
    const std::string code = fmt::format("M{}", i);
    ASSERT_EQ(modelIndex(code), i + 1) << code;
  }
  EXPECT_EQ(modelCode(65535), "M65534");
  EXPECT_EQ(modelIndex("M99999"), 0) << "a new code in a full table means none";
  EXPECT_EQ(modelIndex("X"), 0);
  EXPECT_EQ(modelCount(), kRoom + 1) << "the table stops growing";
  EXPECT_EQ(modelCode(0), "") << "index 0 still means none";
  EXPECT_EQ(modelIndex("M7"), 8) << "known codes keep their index";
  gf_resetCodeTables();
  EXPECT_EQ(modelIndex("M99999"), 1);
  gf_resetCodeTables();
}

}  // namespace
}  // namespace orv
