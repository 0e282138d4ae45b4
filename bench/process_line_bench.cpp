// Decoding RealTraffic's traffic lines: most of the world's traffic is dropped by the range
// test, a few lines become messages for the engine, some are bad. Counts heap allocations
// too: a dropped line must make none.
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <random>
#include <string>
#include <vector>

#include "allocation_count.h"
#include "engine/traffic_queue.h"
#include "engine/engine_tables.h"
#include "feed/traffic_decoder.h"
#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"

namespace {

using namespace orv;

constexpr const char* kModels[] = {"A320", "B738", "A21N", "B77W", "E190", "CRJ9", "A359", "B789", "AT76", "C172"};

// A report as RealTraffic sends it, with the user near Frankfurt (50.03, 8.57).
std::string line(std::mt19937& rng, double lat, double lon) {
  std::uniform_int_distribution<int> hex(10001, 16777215), alt(3000, 39000), model(0, 9), gs(180, 480);
  std::uniform_real_distribution<double> heading(0.5, 359.5);
  return fmt::format(
      "1,{},{:.5f},{:.5f},{},-640,0,{:.1f},{},DLH{},{},D-AI{:02},FRA,JFK,1795392000.25,0,0,adsb_icao,0,0,{},0,0,-1,0,{:.1f},"
      "0,0,A3,0,0",
      hex(rng), lat, lon, alt(rng), heading(rng), gs(rng), hex(rng) % 9000, kModels[model(rng)], hex(rng) % 100,
      gs(rng) + 20, heading(rng));
}

std::vector<std::string> worldLines(std::size_t n) {
  std::mt19937 rng(7);
  std::uniform_real_distribution<double> lat(-60, 70), lon(-180, 180);
  std::vector<std::string> v;
  while (v.size() < n) {
    const double a = lat(rng), o = lon(rng);
    if (std::abs(a - 50.03) < 2 && std::abs(o - 8.57) < 3) continue;  // keep it out of range
    v.push_back(line(rng, a, o));
  }
  return v;
}

std::vector<std::string> nearbyLines(std::size_t n) {
  std::mt19937 rng(11);
  std::uniform_real_distribution<double> lat(49.8, 50.3), lon(8.2, 8.9);
  std::vector<std::string> v;
  for (std::size_t i = 0; i < n; ++i) v.push_back(line(rng, lat(rng), lon(rng)));
  return v;
}

struct Setup {
  Setup() {
    gf_openLog("/dev/null");
    gf_setRange(40);
    decoder.setUserPosition(50.03, 8.57);
    gTrafficQueue.setEnabled(true);
  }
  TrafficDecoder decoder;
};

void run(benchmark::State& state, const std::vector<std::string>& lines) {
  static Setup setup;
  std::size_t i = 0;
  const std::uint64_t allocationsBefore = orv::bench::allocationCount();
  for (auto _ : state) {
    setup.decoder.processLine(lines[i]);
    if (++i == lines.size()) {
      i = 0;
      gTrafficQueue.clear();  // the engine takes the messages
    }
  }
  state.SetItemsProcessed(state.iterations());
  state.counters["allocs/line"] =
      static_cast<double>(orv::bench::allocationCount() - allocationsBefore) / static_cast<double>(state.iterations());
}

void BM_ProcessLineDroppedByRange(benchmark::State& state) {
  static const auto lines = worldLines(10000);
  run(state, lines);
}
BENCHMARK(BM_ProcessLineDroppedByRange);

void BM_ProcessLineAccepted(benchmark::State& state) {
  static const auto lines = nearbyLines(10000);
  run(state, lines);
}
BENCHMARK(BM_ProcessLineAccepted);

// 90 percent out of range, 8 percent accepted, 2 percent bad (an unreadable ground speed).
void BM_ProcessLineMix(benchmark::State& state) {
  static const auto lines = [] {
    auto world = worldLines(9000);
    auto near = nearbyLines(1000);
    std::vector<std::string> v;
    for (std::size_t i = 0; i < 10000; ++i) {
      if (i % 10 != 9) {
        v.push_back(world[i - i / 10]);
      } else if (i % 50 == 49) {
        std::string bad = near[i / 10];
        bad.insert(bad.find(",DLH"), "kt");
        v.push_back(bad);
      } else {
        v.push_back(near[i / 10]);
      }
    }
    return v;
  }();
  run(state, lines);
}
BENCHMARK(BM_ProcessLineMix);

}  // namespace
