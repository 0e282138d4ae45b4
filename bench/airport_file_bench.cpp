// Loading a park airport: the largest stock airport file read into the stand table, numbered,
// and every pair of stands measured for adjacency. Needs the built data (tools/build_data.sh build).
#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <filesystem>
#include <string>
#include <vector>

#include "airportdata/stand_numbering.h"
#include "airportdata/stand_reader.h"
#include "airportdata/stands.h"

namespace fs = std::filesystem;

namespace {

fs::path largestStockFile() {
  fs::path largest;
  std::error_code ec;
  std::uintmax_t size = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(ORV_STOCK_FOLDER, ec)) {
    if (entry.path().extension() != ".xml" || entry.file_size() <= size) continue;
    size = entry.file_size();
    largest = entry.path();
  }
  return largest;
}

std::size_t optionCount(const std::vector<orv::Stand>& stands) {
  std::size_t n = 0;
  for (const orv::Stand& s : stands) n += s.opts.size();
  return n;
}

void BM_ReadAndNumberLargestStockFile(benchmark::State& state) {
  const fs::path file = largestStockFile();
  if (file.empty()) {
    state.SkipWithError("no stock airport files: run tools/build_data.sh build");
    return;
  }
  std::vector<orv::Stand> stands;
  for (auto _ : state) {
    pugi::xml_document doc;
    doc.load_file(file.c_str());
    stands.clear();
    orv::readStands(doc, stands);
    orv::lf_numberStands(stands);
    benchmark::DoNotOptimize(stands.data());
  }
  std::size_t adjacent = 0;
  for (const orv::Stand& s : stands) adjacent += s.adjacent.size();
  state.SetLabel(file.stem().string() + ": " + std::to_string(stands.size()) + " stands, " +
                 std::to_string(optionCount(stands)) + " options, " + std::to_string(adjacent / 2) + " adjacent pairs");
}
BENCHMARK(BM_ReadAndNumberLargestStockFile)->Unit(benchmark::kMillisecond);

// The numbering alone: n (n - 1) / 2 haversine distances.
void BM_NumberLargestStockFile(benchmark::State& state) {
  const fs::path file = largestStockFile();
  if (file.empty()) {
    state.SkipWithError("no stock airport files: run tools/build_data.sh build");
    return;
  }
  pugi::xml_document doc;
  doc.load_file(file.c_str());
  std::vector<orv::Stand> stands;
  orv::readStands(doc, stands);
  for (auto _ : state) {
    orv::lf_numberStands(stands);
    benchmark::DoNotOptimize(stands.data());
  }
}
BENCHMARK(BM_NumberLargestStockFile)->Unit(benchmark::kMicrosecond);

}  // namespace
