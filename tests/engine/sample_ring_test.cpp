// The position stream's ring: order kept across the wrap of its buffer and across growth.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "engine/sample_ring.h"

namespace orv::test {
namespace {

// Every operation the engine uses, against a deque, with the head walking round the buffer.
TEST(SampleRing, KeepsTheOrderOfADequeThroughWrapsGrowthAndErase) {
  Ring<int> ring;
  std::deque<int> want;
  const auto same = [&](const char* after) {
    ASSERT_EQ(ring.size(), want.size()) << after;
    EXPECT_TRUE(std::equal(ring.begin(), ring.end(), want.begin())) << after;
    if (!want.empty()) {
      EXPECT_EQ(ring.front(), want.front()) << after;
      EXPECT_EQ(ring.back(), want.back()) << after;
    }
  };
  int next = 0;
  for (int round = 0; round < 40; ++round) {
    for (int k = 0; k < 3; ++k) ring.push_back(next), want.push_back(next++);
    same("push_back");
    ring.pop_front(), want.pop_front();
    same("pop_front");
    if (round % 5 == 0) ring.push_front(-round), want.push_front(-round);
    same("push_front");
    if (round % 7 == 3 && ring.size() > 2) ring.erase(ring.begin() + 1), want.erase(want.begin() + 1);
    same("erase");
  }
  const std::size_t grown = ring.capacity();
  EXPECT_EQ(grown & (grown - 1), 0u) << "a power of two";

  ring.resize(1), want.resize(1);
  same("resize down");
  ring.resize(3), want.resize(3);
  same("resize up adds defaults");
  EXPECT_EQ(ring[2], 0);

  // A copy is its own stream; a moved-from one is empty.
  Ring<int> copy = ring;
  copy.front() = 99;
  EXPECT_NE(ring.front(), 99);
  Ring<int> moved = std::move(copy);
  EXPECT_TRUE(copy.empty());
  EXPECT_EQ(moved.front(), 99);
}

// A stream that keeps its length allocates once and then never again.
TEST(SampleRing, AStreamOfSteadyLengthKeepsItsBuffer) {
  Ring<int> ring;
  for (int i = 0; i < 20; ++i) ring.push_back(i);
  const std::size_t capacity = ring.capacity();
  for (int i = 20; i < 10000; ++i) {
    ring.pop_front();
    ring.push_back(i);
  }
  EXPECT_EQ(ring.capacity(), capacity);
  EXPECT_EQ(ring.front(), 9980);
  EXPECT_EQ(ring.back(), 9999);
}

}  // namespace
}  // namespace orv::test
