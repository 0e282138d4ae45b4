// The livery catalogue at start-up (reading and indexing 50000 records) and one match of a live
// aircraft that goes through the whole ladder against that catalogue.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "foundation/parameters.h"
#include "liveries/catalogue_file.h"
#include "liveries/livery_catalogue.h"
#include "liveries/livery_indexes.h"
#include "liveries/livery_matching.h"
#include "liveries/match_summary.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/prefix_groups.h"
#include "refdata/similar_models.h"

namespace fs = std::filesystem;

namespace {

constexpr int kRecords = 50000;
constexpr int kModels = 400;
constexpr int kAirlines = 1500;
const std::vector<std::string> kPrefixes{"D-", "OE-", "HB-", "G-", "EI-", "F-", "N", "C-", "PH-", "VH-"};

std::string letters(std::mt19937& rng, int length) {
  std::uniform_int_distribution<int> letter('A', 'Z');
  std::string text;
  for (int i = 0; i < length; ++i) text += static_cast<char>(letter(rng));
  return text;
}

std::string modelName(int i) { return "M" + std::to_string(100 + i); }
// Three letters, from "AAA" on; below 1500 none of them starts with a letter after "C".
std::string airlineName(int i) {
  return {static_cast<char>('A' + i / 676 % 26), static_cast<char>('A' + i / 26 % 26), static_cast<char>('A' + i % 26)};
}

// About the size of a large user's installation: 400 models in all six categories, 1500
// airlines with fleets of eight models, two fifths of the titles with a registration, some freighters, sixty regional
// companies flying for an airline, generic and private paints of all models.
struct Catalogue {
  fs::path folder = fs::temp_directory_path() / ("orvane-bench-liveries-" + std::to_string(::getpid()));
  fs::path file = folder / "output" / "LiveriesScanned.xml";

  Catalogue() {
    fs::create_directories(folder / "output");
    std::mt19937 rng(4711);
    std::uniform_int_distribution<int> pickModel(0, kModels - 1), pickAirline(0, kAirlines - 1), kind(0, 19);
    std::uniform_int_distribution<int> pickRegional(0, 59), pickFleet(0, 7);
    std::uniform_int_distribution<std::size_t> pickPrefix(0, kPrefixes.size() - 1);
    struct Line {
      std::string a, o, m, t, r;
      bool c;
    };
    std::vector<Line> lines;
    for (int i = 0; i < kRecords; ++i) {
      const int k = kind(rng);
      Line line;
      // Sixty regional companies, each flying for one airline.
      const int regional = pickRegional(rng);
      const int airline = k == 2 ? regional : pickAirline(rng);
      // An airline flies a fleet of eight models; generic and private paints come for any model.
      const int m = k < 2 ? pickModel(rng) : (airline * 7 + pickFleet(rng) * 13) % kModels;
      line.a = k == 0 ? "ZZZ" : k == 1 ? "PVT" : airlineName(airline);
      if (k == 2) line.o = airlineName(kAirlines - 1 - regional);
      line.m = modelName(m);
      line.c = k == 3;
      line.t = "Maker " + line.m + " " + line.a + " livery " + std::to_string(i);
      if (k >= 12) line.r = kPrefixes[pickPrefix(rng)] + letters(rng, 4) + std::to_string(i);
      lines.push_back(std::move(line));
    }
    // As a scan writes it: in the catalogue's order.
    std::sort(lines.begin(), lines.end(),
              [](const Line& x, const Line& y) { return std::tie(x.a, x.o, x.m, x.t) < std::tie(y.a, y.o, y.m, y.t); });
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << "<?xml version=\"1.0\"?>\n<root>\n  <liveries>\n";
    for (const Line& line : lines) {
      out << "    <l a=\"" << line.a << "\"";
      if (!line.o.empty()) out << " o=\"" << line.o << "\"";
      out << " m=\"" << line.m << "\"";
      if (line.c) out << " c=\"true\"";
      out << " t=\"" << line.t << "\"";
      if (!line.r.empty()) out << " r=\"" << line.r << "\"";
      out << " />\n";
    }
    out << "  </liveries>\n</root>\n";
    fs::current_path(folder);  // the reports of the catalogue go to its output/

    // The dbase's part: categories, similar groups of four, prefix groups.
    orv::gf_resetCodeTables();
    for (int i = 0; i < kModels; ++i) {
      const uint16_t index = orv::modelIndex(modelName(i));
      if (i < 150)
        orv::largeModels.insert(index);
      else if (i < 200)
        orv::heavyModels.insert(index);
      else if (i < 240)
        orv::buzjetModels.insert(index);
      else if (i < 260)
        orv::highPerfModels.insert(index);
      else if (i < 280)
        orv::rotorcraftModels.insert(index);
    }
    orv::similarGroups.clear();
    for (int i = 0; i + 3 < kModels; i += 4)
      orv::similarGroups.push_back({modelName(i), modelName(i + 1), modelName(i + 2), modelName(i + 3)});
    orv::prefixGroupLists = {{"D-", "OE-", "HB-"}, {"G-", "EI-"}, {"N", "C-"}};
    orv::lf_buildPrefixGroups();
  }
  ~Catalogue() {
    std::error_code error;
    fs::current_path(fs::temp_directory_path(), error);
    fs::remove_all(folder, error);
  }
};

Catalogue& catalogue() {
  static Catalogue c;
  return c;
}

void BM_ReadAndIndexCatalogue(benchmark::State& state) {
  const fs::path file = catalogue().file;
  for (auto _ : state) {
    orv::gf_resetLiveryIndexes();
    orv::gf_processScannedLiveries(file);
    benchmark::DoNotOptimize(orv::modelTitles[0].size());
  }
  state.counters["titles"] = static_cast<double>(kRecords);
}
BENCHMARK(BM_ReadAndIndexCatalogue)->Unit(benchmark::kMillisecond)->Iterations(5)->Repetitions(3);

// A light aircraft of a regional company flying for an airline: no title for its registration,
// none of either airline or of a similar model of theirs, no generic paint and none of its own
// model; it ends at step 6 with another owner's livery of a similar model, registered in a
// neighbouring country.
void BM_FindLiveryLiveWholeLadder(benchmark::State& state) {
  const fs::path file = catalogue().file;
  orv::gf_resetLiveryIndexes();
  orv::gf_processScannedLiveries(file);
  orv::RANDOM.set(true);
  orv::MATCHING_DEPTH.set(4);
  // A light model without liveries whose group has models with liveries.
  const std::string model = "M399X";
  orv::similarGroups.push_back({model, modelName(300), modelName(301)});
  orv::LiveryPresence presence;
  for (const auto& index : orv::modelTitles)
    for (const auto& [m, titles] : index) presence.modelsWithLivery.insert(m);
  orv::buildSimilarLists(presence);

  orv::LiveryQuery ac;
  ac.code.airline = orv::airlineIndex("QQQ");
  ac.code.airline2 = orv::airlineIndex("QQR");
  ac.code.acType = orv::modelIndex(model);
  ac.acClass = orv::categoryOfModel(ac.code.acType);
  ac.reg = "OE-XYZ";
  ac.cs = "QQQ123";
  ac.description = "QQQ123   OE-XYZ       FRA->VIE QQQ,QQR M399X";
  const std::uint32_t atStep6 = orv::matchCounters[6];
  for (auto _ : state) {
    ac.title = {};
    orv::gf_findLiveryLive(ac);
  }
  if (orv::matchCounters[6] - atStep6 != state.iterations()) state.SkipWithError("not every match came at step 6");
}
BENCHMARK(BM_FindLiveryLiveWholeLadder)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
