#include "foundation/text_utils.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace orv {
namespace {

TEST(TextUtils, TrimPercentHex) {
  EXPECT_EQ(gf_trim(" \t\r\n a b \n\r\t "), "a b");
  EXPECT_EQ(gf_trim(" \t\r\n"), "");
  EXPECT_EQ(gf_trim("\va\v"), "\va\v");  // only the four characters of line ends and indents

  EXPECT_EQ(gf_percent(1, 3), 33);
  EXPECT_EQ(gf_percent(2, 3), 67);
  EXPECT_EQ(gf_percent(1, 8), 13);  // 12.5 rounds away from zero
  EXPECT_EQ(gf_percent(std::size_t{7}, std::size_t{7}), 100);
  EXPECT_EQ(gf_percent(5, 0), 0);
  EXPECT_EQ(gf_percent(1, 0.9), 0);
  EXPECT_EQ(gf_percent(3, 1), 300);

  EXPECT_EQ(gf_hex(0xDEADBEEFu), "deadbeef");
  EXPECT_EQ(gf_hex(0), "0");
}

}  // namespace
}  // namespace orv
