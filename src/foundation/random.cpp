#include "foundation/random.h"

#include <chrono>
#include <functional>
#include <thread>

#include "foundation/parameters.h"

namespace orv {

namespace {
std::mt19937 seededGenerator() {
  std::random_device device;
  const auto time = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  const auto thread = static_cast<std::uint64_t>(std::hash<std::thread::id>{}(std::this_thread::get_id()));
  // All 64 bits of the clock and the thread hash go in; the sequence takes 32-bit words.
  std::seed_seq seeds{static_cast<std::uint32_t>(device()),
                      static_cast<std::uint32_t>(time), static_cast<std::uint32_t>(time >> 32),
                      static_cast<std::uint32_t>(thread), static_cast<std::uint32_t>(thread >> 32)};
  return std::mt19937(seeds);
}
}  // namespace

std::mt19937& gf_rng() {
  thread_local std::mt19937 generator = seededGenerator();
  return generator;
}

bool detail::randomOn() { return RANDOM.value; }

std::uint64_t gf_randomIndex(std::uint64_t n) {
  if (n < 2 || !RANDOM.value) return 0;
  std::uniform_int_distribution<std::uint64_t> pick(0, n - 1);
  return pick(gf_rng());
}

}  // namespace orv
