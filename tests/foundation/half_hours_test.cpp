#include "foundation/half_hours.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace orv {
namespace {

HalfHours bits(std::initializer_list<std::size_t> set) {
  HalfHours h;
  for (std::size_t n : set) h.set(n);
  return h;
}

TEST(HalfHours, RangesAndTheirErrors) {
  test::LogCapture log;
  EXPECT_EQ(gf_hours2bitset("3:3"), bits({3}));
  EXPECT_EQ(gf_hours2bitset(" 4 : 6 "), bits({4, 5, 6}));
  EXPECT_EQ(gf_hours2bitset("0:47"), HalfHours().set());
  EXPECT_EQ(gf_hours2bitset("5:"), bits({5}));
  EXPECT_TRUE(gf_hours2bitset("6:4").none());
  EXPECT_TRUE(gf_hours2bitset("1:2:3").none());
  EXPECT_TRUE(gf_hours2bitset("2:48").none());
  EXPECT_TRUE(gf_hours2bitset(" : ").none());
  const std::string text = log.text();
  EXPECT_NE(text.find("==> gf_hours2bitset descending range not allowed (6:4 in 6:4)\n"), std::string::npos) << text;
  EXPECT_NE(text.find("==> gf_hours2bitset more than one colon char in: 1:2:3\n"), std::string::npos) << text;
  EXPECT_NE(text.find("==> gf_hours2bitset invalid hour '48' in 2:48\n"), std::string::npos) << text;
  EXPECT_NE(text.find("==> gf_hours2bitset invalid range format in  : \n"), std::string::npos) << text;
}

TEST(HalfHours, ListsAndSingleNumbers) {
  test::LogCapture log;
  EXPECT_TRUE(gf_hours2bitset("").none());
  EXPECT_TRUE(gf_hours2bitset(" \t").none());
  EXPECT_EQ(gf_hours2bitset("47"), bits({47}));
  EXPECT_EQ(gf_hours2bitset("0, 07 ,12"), bits({0, 7, 12}));
  EXPECT_EQ(gf_hours2bitset("1,x,3"), bits({1, 3}));
  EXPECT_TRUE(gf_hours2bitset("48").none());
  EXPECT_TRUE(gf_hours2bitset("-1").none());
  EXPECT_TRUE(gf_hours2bitset("99999999999999999999999").none());
  const std::string text = log.text();
  EXPECT_NE(text.find("==> gf_hours2bitset invalid hour 'x' in 1,x,3\n"), std::string::npos) << text;
  EXPECT_NE(text.find("==> gf_hours2bitset invalid hour '48' in 48\n"), std::string::npos) << text;
  EXPECT_NE(text.find("==> gf_hours2bitset invalid hour '-1' in -1\n"), std::string::npos) << text;
  // The empty texts are no error.
  EXPECT_EQ(text.find("in \n"), std::string::npos) << text;
}

TEST(HalfHours, TextForms) {
  EXPECT_EQ(gf_bitset2hours(bits({4, 5, 6})), "4:6");
  EXPECT_EQ(gf_bitset2hours(bits({47})), "47");
  EXPECT_EQ(gf_bitset2hours(HalfHours().set()), "0:47");
  EXPECT_EQ(gf_bitset2hours(bits({1, 3})), std::nullopt);
  EXPECT_EQ(gf_bitset2hours(HalfHours()), std::nullopt);
  EXPECT_EQ(gf_bitset2list(bits({0, 9, 47})), "0,9,47");
  EXPECT_EQ(gf_bitset2list(HalfHours()), "");
  // What is written reads back as the same set.
  const HalfHours run = bits({10, 11, 12, 13});
  EXPECT_EQ(gf_hours2bitset(*gf_bitset2hours(run)), run);
  EXPECT_EQ(gf_hours2bitset(gf_bitset2list(bits({2, 30, 31}))), bits({2, 30, 31}));
}

}  // namespace
}  // namespace orv
