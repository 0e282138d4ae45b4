#include "foundation/fixed_code.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <unordered_set>

namespace orv {
namespace {

TEST(FixedCode, BuiltFromText) {
  const FixedCode<4> eddf("eDdf");
  EXPECT_EQ(eddf.view(), "EDDF");
  EXPECT_EQ(eddf.str(), "EDDF");
  EXPECT_EQ(fmt::format("[{}]", eddf), "[EDDF]");
  EXPECT_EQ(FixedCode<3>("k2a").view(), "K2A");
  EXPECT_EQ(eddf, FixedCode<4>("EDDF"));
  EXPECT_LT(FixedCode<4>("EDDA"), eddf);

  const FixedCode<3> none;
  EXPECT_TRUE(none.empty());
  EXPECT_FALSE(none);
  EXPECT_EQ(none.view(), "");
  EXPECT_FALSE(eddf.empty());

  for (const char* bad : {"EDD", "EDDFX", "", "ED-F", "ED F", "\xC3\x84" "DD"}) {
    try {
      FixedCode<4> code(bad);
      ADD_FAILURE() << "accepted '" << bad << "'";
    } catch (const std::invalid_argument& e) {
      EXPECT_EQ(std::string(e.what()), std::string("'") + bad + "' FixedCode: invalid string (length/charset)");
    }
  }
}

TEST(FixedCode, WordAndHash) {
  const FixedCode<4> code("KJFK");
  EXPECT_EQ(code.word(), 0x4B464A4Bu);  // 'K' 'J' 'F' 'K', the first in the low byte
  EXPECT_EQ(FixedCode<4>::fromWord(code.word()), code);
  EXPECT_EQ(FixedCode<4>().word(), 0u);

  std::unordered_set<FixedCode<3>> seen{FixedCode<3>("DLH"), FixedCode<3>("dlh"), FixedCode<3>("BAW")};
  EXPECT_EQ(seen.size(), 2u);
  EXPECT_TRUE(seen.contains(FixedCode<3>("BAW")));
  EXPECT_NE(std::hash<FixedCode<3>>{}(FixedCode<3>("ABC")), std::hash<FixedCode<3>>{}(FixedCode<3>("CBA")));
}

}  // namespace
}  // namespace orv
