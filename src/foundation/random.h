#pragma once
// Randomness for the choices of the engine. Each thread has its own generator, so that the
// scan workers draw side by side without a lock. With RANDOM off every choice takes the
// first candidate, which makes runs repeatable.
#include <cstdint>
#include <iterator>
#include <random>
#include <ranges>
#include <utility>

namespace orv {

// The calling thread's generator, seeded at its first use.
std::mt19937& gf_rng();

// A uniform index below n; 0 when RANDOM is off or n is below 2.
std::uint64_t gf_randomIndex(std::uint64_t n);

namespace detail {
bool randomOn();
}

// Fisher-Yates from the second element on, each swapped with one at a uniform index at or
// before it; nothing when RANDOM is off or the list has fewer than two elements.
template <std::ranges::random_access_range List>
void gf_shuffle(List& list) {
  const auto size = static_cast<std::size_t>(std::ranges::size(list));
  if (size < 2 || !detail::randomOn()) return;
  std::mt19937& rng = gf_rng();
  const auto first = std::ranges::begin(list);
  using Difference = std::iter_difference_t<decltype(first)>;
  for (std::size_t i = 1; i < size; ++i) {
    std::uniform_int_distribution<std::size_t> pick(0, i);
    std::ranges::iter_swap(first + static_cast<Difference>(i), first + static_cast<Difference>(pick(rng)));
  }
}

}  // namespace orv
