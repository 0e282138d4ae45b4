#include "fuzz_support.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>

namespace fs = std::filesystem;

namespace orv::fuzz {

namespace {

struct Scratch {
  fs::path path;
  Scratch() {
    std::mt19937_64 rng{std::random_device{}()};
    // Memory-backed when the system has it: the file targets write an input each run.
    const fs::path base = fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
      // The process id in front: tools/fuzz.sh removes the folder of a run that crashed.
      fs::path candidate = base / ("orvane-fuzz-" + std::to_string(getpid()) + "-" + std::to_string(rng()));
      if (fs::create_directory(candidate)) {
        path = candidate;
        return;
      }
    }
    throw std::runtime_error("cannot create a scratch folder");
  }
  ~Scratch() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
};

}  // namespace

const fs::path& scratchFolder() {
  static Scratch scratch;
  return scratch.path;
}

void writeInput(const fs::path& file, std::string_view bytes) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out) failCheck("cannot write the input file " + file.string());
}

std::vector<std::vector<char>> datagramsOf(std::string_view bytes) {
  std::vector<std::vector<char>> datagrams;
  for (;;) {
    const auto lf = bytes.find('\n');
    const std::string_view piece = bytes.substr(0, lf);
    datagrams.emplace_back(piece.begin(), piece.end());
    if (lf == std::string_view::npos) break;
    bytes.remove_prefix(lf + 1);
  }
  return datagrams;
}

void failCheck(std::string_view what) {
  std::fprintf(stderr, "fuzz check failed: %.*s\n", static_cast<int>(what.size()), what.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace orv::fuzz

// The fuzz build keeps undefined-behaviour reports recoverable for its suppressions; any report
// that is not suppressed must still end the run, as a crash, so that the fuzzer keeps the input.
extern "C" const char* __ubsan_default_options() { return "halt_on_error=1:print_stacktrace=1"; }
