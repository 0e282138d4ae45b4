// Start-up cost of the dbase: decrypting, parsing and indexing a file of 100000 registrations.
#include <benchmark/benchmark.h>
#include <sodium.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

#include "refdata/data_file_crypto.h"
#include "refdata/dbase_reader.h"
#include "refdata/registrations.h"

namespace fs = std::filesystem;

namespace {

constexpr int kRecords = 100000;

std::string code(std::mt19937& rng, int length) {
  std::uniform_int_distribution<int> letter('A', 'Z');
  std::string text;
  for (int i = 0; i < length; ++i) text += static_cast<char>(letter(rng));
  return text;
}

// About the size of the real data: 600 models, 1200 airlines, 100000 aircraft.
std::string makeDbase() {
  std::mt19937 rng(4711);
  std::vector<std::string> models, airlines;
  for (int i = 0; i < 600; ++i) models.push_back(code(rng, 4));
  for (int i = 0; i < 1200; ++i) airlines.push_back(code(rng, 3));
  const auto list = [](const std::vector<std::string>& codes, std::size_t from, std::size_t to) {
    std::string text;
    for (std::size_t i = from; i < to && i < codes.size(); ++i) text += (text.empty() ? "" : ",") + codes[i];
    return text;
  };
  std::string xml = "<?xml version=\"1.0\"?>\n<root>\n";
  xml += "<aircrafts><aircraft types=\"" + list(models, 0, 600) + "\"/></aircrafts>\n";
  xml += "<cargo_types><cargo_type types=\"" + list(models, 0, 10) + "\"/></cargo_types>\n";
  xml += "<heavy><hvy types=\"" + list(models, 10, 60) + "\"/></heavy>\n";
  xml += "<large><lar types=\"" + list(models, 60, 160) + "\"/></large>\n";
  xml += "<buzjet><bzj types=\"" + list(models, 160, 220) + "\"/></buzjet>\n";
  xml += "<high_performance><hpf types=\"" + list(models, 220, 260) + "\"/></high_performance>\n";
  xml += "<rotorcraft><rot types=\"" + list(models, 260, 320) + "\"/></rotorcraft>\n";
  xml += "<ICAO_airlines><ICAO codes=\"" + list(airlines, 0, 1200) + ",ZZZ,PVT\"/></ICAO_airlines>\n";
  xml += "<cargo_operators><ICAO codes=\"" + list(airlines, 0, 30) + "\"/></cargo_operators>\n";
  xml += "<simaddons20><simaddon20 arpts=\"EHAM,KLAX\"/></simaddons20>\n";
  xml += "<simaddons24><simaddon24 arpts=\"EHAM,KLAX\"/></simaddons24>\n<wingspans>\n";
  for (std::size_t i = 0; i < 300; ++i) xml += "<wingspan type=\"" + models[i] + "\" meters=\"35.8\"/>\n";
  xml += "</wingspans>\n<dbase>\n";
  std::uniform_int_distribution<std::size_t> pickModel(0, models.size() - 1), pickAirline(0, airlines.size() - 1);
  std::uniform_int_distribution<int> kind(0, 9);
  for (int i = 0; i < kRecords; ++i) {
    const int k = kind(rng);
    std::string reg = k < 4 ? "N" + std::to_string(10000 + i) : code(rng, 2) + "-" + code(rng, 3);
    xml += "<d r=\"" + reg + "\" m=\"" + models[pickModel(rng)] + "\"";
    if (k != 0) xml += " a=\"" + airlines[pickAirline(rng)] + "\"";
    if (k == 9) xml += " c=\"true\"";
    xml += "/>\n";
  }
  return xml + "</dbase>\n</root>\n";
}

// The same stream the maker's tool writes.
void writeEncrypted(const fs::path& file, const std::string& plain) {
  if (sodium_init() < 0) throw std::runtime_error("libsodium");
  crypto_secretstream_xchacha20poly1305_state state;
  std::array<unsigned char, orv::kDataHeaderBytes> header{};
  crypto_secretstream_xchacha20poly1305_init_push(&state, header.data(), orv::gf_dataKey().data());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(header.data()), static_cast<std::streamsize>(header.size()));
  std::array<unsigned char, orv::kDataCipherChunk> cipher{};
  std::size_t offset = 0;
  do {
    const std::size_t length = std::min(orv::kDataPlainChunk, plain.size() - offset);
    const bool last = offset + length == plain.size();
    unsigned long long cipherLength = 0;
    crypto_secretstream_xchacha20poly1305_push(&state, cipher.data(), &cipherLength,
                                               reinterpret_cast<const unsigned char*>(plain.data() + offset), length,
                                               nullptr, 0, last ? crypto_secretstream_xchacha20poly1305_TAG_FINAL : 0);
    out.write(reinterpret_cast<const char*>(cipher.data()), static_cast<std::streamsize>(cipherLength));
    offset += length;
  } while (offset < plain.size());
}

void BM_ReadDbase(benchmark::State& state) {
  const fs::path folder = fs::temp_directory_path() / ("orvane-dbase-bench-" + std::to_string(::getpid()));
  fs::create_directories(folder);
  const fs::path enc = folder / "dbase.enc";
  const std::string plain = makeDbase();
  writeEncrypted(enc, plain);
  for (auto _ : state) {
    orv::gf_resetDbase();
    if (!orv::gf_readDbaseFile(enc)) state.SkipWithError("dbase not read");
    benchmark::DoNotOptimize(orv::dbaseRecords.data());
  }
  state.counters["records"] = static_cast<double>(orv::dbaseRecords.size());
  state.counters["MB"] = static_cast<double>(plain.size()) / 1e6;
  orv::gf_resetDbase();
  fs::remove_all(folder);
}
BENCHMARK(BM_ReadDbase)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
