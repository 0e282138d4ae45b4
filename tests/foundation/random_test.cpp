#include "foundation/random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <deque>
#include <thread>
#include <vector>

#include "foundation/parameters.h"

namespace orv {
namespace {

// Sets RANDOM for one test; the others expect the setting as it was.
struct RandomSetting {
  explicit RandomSetting(bool on) { RANDOM.value = on; }
  ~RandomSetting() { RANDOM.value = previous; }
  bool previous = RANDOM.value;
};

TEST(Random, OffKeepsTheFirstChoiceAndTheOrder) {
  RandomSetting off(false);
  for (int i = 0; i < 50; ++i) EXPECT_EQ(gf_randomIndex(5), 0u);
  std::vector<int> list{0, 1, 2, 3, 4, 5, 6, 7};
  gf_shuffle(list);
  EXPECT_EQ(list, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(Random, OnDrawsUniformIndicesAndPermutations) {
  RandomSetting on(true);
  EXPECT_EQ(gf_randomIndex(0), 0u);
  EXPECT_EQ(gf_randomIndex(1), 0u);
  std::array<int, 5> hits{};
  for (int i = 0; i < 5000; ++i) {
    const auto index = gf_randomIndex(5);
    ASSERT_LT(index, 5u);
    ++hits[index];
  }
  for (int h : hits) EXPECT_GT(h, 800);  // about 1000 each

  // Every element reaches every position, the first one included.
  std::array<std::array<int, 4>, 4> seenAt{};
  for (int trial = 0; trial < 2000; ++trial) {
    std::deque<int> list{0, 1, 2, 3};
    gf_shuffle(list);
    ASSERT_TRUE(std::is_permutation(list.begin(), list.end(), std::array{0, 1, 2, 3}.begin()));
    for (std::size_t pos = 0; pos < 4; ++pos) ++seenAt[static_cast<std::size_t>(list[pos])][pos];
  }
  for (const auto& row : seenAt)
    for (int count : row) EXPECT_GT(count, 350);  // about 500 each
}

TEST(Random, EachThreadHasItsOwnGenerator) {
  auto draw = [] {
    std::mt19937& rng = gf_rng();
    return std::pair{&rng, std::array{rng(), rng(), rng(), rng()}};
  };
  // This thread's generator first: a finished thread's storage may be handed out again.
  const std::mt19937* mine = &gf_rng();
  decltype(draw()) a, b;
  std::thread([&] { a = draw(); }).join();
  std::thread([&] { b = draw(); }).join();
  EXPECT_NE(a.first, mine);
  EXPECT_NE(a.second, b.second);
}

}  // namespace
}  // namespace orv
