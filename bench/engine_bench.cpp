// The engine step (one tick of the run cycle's engine work) with 500 and 5,000 live aircraft in
// the air, each flying its reported track while the feed streams new reports at the rate the
// engine takes them (two a tick). The counter "allocs/tick" counts the heap allocations of the
// timed ticks; the feed's own posting is outside the timing.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "allocation_count.h"
#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/new_aircraft.h"
#include "engine/traffic_queue.h"
#include "engine/user_snapshot.h"
#include "refdata/code_tables.h"

namespace {

using namespace orv;

constexpr double kUserLat = 50.0, kUserLon = 8.0;
constexpr double kFeetPerNm = 6076.11549;
constexpr double kRadPerDeg = 0.017453292519943295;

// One aircraft of the feed: a straight track at a steady speed, some of them climbing.
struct Track {
  LatLon start;
  double trackDeg, gs, alt, vs;
  std::uint32_t hexid;

  Sample at(double seconds) const {
    Sample s;
    const LatLon p = gf_destination(start, trackDeg * kRadPerDeg, gs * seconds / 3600.0 * kFeetPerNm);
    s.lat = p.lat, s.lon = p.lon;
    s.alt = alt + vs * seconds / 60.0;
    s.gs = s.tas = gs;
    s.track = trackDeg;
    s.vs = vs;
    s.airborne = 1;
    return s;
  }
};

struct Traffic {
  std::vector<Track> tracks;
  std::size_t next = 0;  // whose report the feed sends next
  double period = 0;     // seconds between two reports of one aircraft

  explicit Traffic(int n) {
    std::mt19937 rng(4711);
    std::uniform_real_distribution<double> offset(-0.5, 0.5), track(0, 360), gs(250, 480), alt(4000, 39000);
    std::uniform_int_distribution<int> climbs(0, 4);
    for (int i = 0; i < n; ++i)
      tracks.push_back({{kUserLat + offset(rng), kUserLon + offset(rng) * 1.5},
                        track(rng),
                        gs(rng),
                        alt(rng),
                        climbs(rng) == 0 ? 800.0 : 0.0,
                        static_cast<std::uint32_t>(20000 + i)});
    period = n / 200.0;
  }

  // The feed's report of the next aircraft at this tick, stamped due 30 seconds later.
  TrafficMsg report(std::int32_t tick) {
    const Track& t = tracks[next];
    next = (next + 1) % tracks.size();
    TrafficMsg m;
    m.hexid = t.hexid;
    m.ident.code.acType = modelIndex("A320");
    m.timestamp = tick / 100.0;
    m.sample = t.at(tick / 100.0);
    m.sample.tick = tick + 3000;
    return m;
  }

  // The aircraft in the simulator, 30 seconds behind its reports, with the reports of the last
  // 30 seconds in its stream, as a run that has been going for a while holds them.
  void spawnAll() {
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      const Track& t = tracks[i];
      const double phase = period * static_cast<double>(i) / static_cast<double>(tracks.size());
      TrafficMsg first;
      first.hexid = t.hexid;
      first.ident.cs = "BEN" + std::to_string(i);
      first.ident.code.acType = modelIndex("A320");
      const double t0 = -30.0 - period + phase;
      first.sample = t.at(t0);
      first.sample.tick = static_cast<std::int32_t>(t0 * 100) + 3000;
      first.timestamp = t0;
      LiveAc ac = gf_makeLiveAc(std::move(first), kLarge, 17.9);
      for (double s = t0 + period; s <= phase - period; s += period) {
        Sample later = t.at(s);
        later.tick = static_cast<std::int32_t>(s * 100) + 3000;
        ac.stream.push_back(later);
        ac.lastTimestamp = s;
      }
      const Sample& now = ac.stream.front();
      ac.lat = now.lat, ac.lon = now.lon, ac.alt = now.alt, ac.agl = now.alt;
      ac.heading = t.trackDeg * kRadPerDeg;
      ac.title = "Airbus A320 Bench";
      ac.objectid = static_cast<std::uint32_t>(100 + i);
      ac.simState = kActive;
      ac.flightState = kFlying;
      gf_addLiveAc(std::move(ac));
    }
  }
};

void BM_EngineStepAirborne(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  gf_resetEngine();
  gv_tick = 0;
  gUserSnapshot.lat = kUserLat;
  gUserSnapshot.lon = kUserLon;
  gf_resetCodeTables();
  Traffic traffic(n);
  traffic.spawnAll();
  gTrafficQueue.setEnabled(true);
  const auto feed = [&](int ticks) {
    for (int i = 0; i < 2 * ticks; ++i) gTrafficQueue.post(traffic.report(gv_tick + i / 2));
  };
  // A minute of flight first: every aircraft in its legs.
  for (int i = 0; i < 6000; ++i) {
    if (i % 100 == 0) feed(100);
    lf_handleAddingStack();
  }
  long ticks = 0;
  std::uint64_t feedAllocations = 0;
  const std::uint64_t before = bench::allocationCount();
  for (auto _ : state) {
    if (ticks % 100 == 0) {
      state.PauseTiming();
      const std::uint64_t feedBefore = bench::allocationCount();
      feed(100);
      feedAllocations += bench::allocationCount() - feedBefore;
      state.ResumeTiming();
    }
    lf_handleAddingStack();
    ++ticks;
  }
  const std::uint64_t allocations = bench::allocationCount() - before - feedAllocations;
  std::size_t active = 0;
  for (const LiveAc& ac : gLiveAc) active += ac.simState == kActive;
  state.counters["active"] = static_cast<double>(active);
  state.counters["allocs/tick"] = static_cast<double>(allocations) / static_cast<double>(ticks);
  gTrafficQueue.setEnabled(false);
  gTrafficQueue.clear();
  gf_resetEngine();
}
BENCHMARK(BM_EngineStepAirborne)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);

}  // namespace
