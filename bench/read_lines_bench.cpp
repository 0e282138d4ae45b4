// Reading a large user file through gf_readLines, in the encodings that users' files come in.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "foundation/text_encoding.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFileSize = 10 * 1024 * 1024;

// Lines like a flight plan file: mostly ASCII, some accented names, lengths 20 to 120.
std::string makeUtf8Text() {
  std::mt19937 rng(12345);
  std::uniform_int_distribution<int> length(20, 120);
  std::uniform_int_distribution<int> letter('a', 'z');
  std::uniform_int_distribution<int> accent(0, 40);
  std::string text;
  text.reserve(kFileSize + 256);
  while (text.size() < kFileSize) {
    const int n = length(rng);
    for (int i = 0; i < n; ++i) {
      const int kind = accent(rng);
      if (kind == 0)
        text += "\xC3\xBC";  // ü
      else if (kind == 1)
        text += "\xC3\xA9";  // é
      else if (kind == 2)
        text += ',';
      else
        text += static_cast<char>(letter(rng));
    }
    text += "\r\n";
  }
  return text;
}

std::string toCp1252(const std::string& utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    if (c == 0xC3) {
      out += static_cast<char>(0x40 + static_cast<unsigned char>(utf8[++i]));
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

std::string toUtf16Le(const std::string& cp1252) {
  // The test text holds only Latin-1 characters, so each byte of its ANSI form is one unit.
  std::string out = "\xFF\xFE";
  out.reserve(2 * cp1252.size() + 2);
  for (char c : cp1252) {
    out += c;
    out += '\0';
  }
  return out;
}

// The three files, written once into the temporary folder and removed at exit.
struct BenchFiles {
  // A name of its own, so that two runs side by side do not share files.
  fs::path folder = fs::temp_directory_path() / ("orvane-read-lines-bench-" + std::to_string(std::random_device{}()));
  fs::path utf8 = folder / "utf8.txt";
  fs::path ansi = folder / "ansi.txt";
  fs::path utf16 = folder / "utf16.txt";

  BenchFiles() {
    fs::create_directories(folder);
    const std::string text = makeUtf8Text();
    const std::string ansiText = toCp1252(text);
    write(utf8, text);
    write(ansi, ansiText);
    write(utf16, toUtf16Le(ansiText));
  }
  ~BenchFiles() {
    std::error_code ec;
    fs::remove_all(folder, ec);
  }
  static void write(const fs::path& file, const std::string& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
};

const BenchFiles& files() {
  static const BenchFiles f;
  return f;
}

void readLines(benchmark::State& state, const fs::path& file, orv::TextEncoding expected) {
  const auto encoding = orv::gf_detectEncoding(file);
  if (encoding != expected) {
    state.SkipWithError("unexpected encoding of the generated file");
    return;
  }
  std::vector<std::string> lines;
  for (auto _ : state) {
    if (!orv::gf_readLines(encoding, file, lines)) state.SkipWithError("file did not open");
    benchmark::DoNotOptimize(lines.data());
  }
  state.counters["lines"] = static_cast<double>(lines.size());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(fs::file_size(file)));
}

void BM_ReadLinesUtf8(benchmark::State& state) { readLines(state, files().utf8, orv::TextEncoding::Utf8); }
void BM_ReadLinesAnsi(benchmark::State& state) { readLines(state, files().ansi, orv::TextEncoding::Ansi); }
void BM_ReadLinesUtf16(benchmark::State& state) { readLines(state, files().utf16, orv::TextEncoding::Utf16Le); }

}  // namespace

BENCHMARK(BM_ReadLinesUtf8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadLinesAnsi)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadLinesUtf16)->Unit(benchmark::kMillisecond);
