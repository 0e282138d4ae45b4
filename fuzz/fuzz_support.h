#pragma once
// What the fuzz targets share. Each target is one LLVMFuzzerTestOneInput: under libFuzzer it
// is fuzzed, in the normal build it replays its corpus (replay_main.cpp).
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace orv::fuzz {

// A private folder of this process, made at the first call and removed at its end.
const std::filesystem::path& scratchFolder();

// The input as a file, replacing what was there.
void writeInput(const std::filesystem::path& file, std::string_view bytes);

// The input's pieces between line feeds, each copied into a buffer of exactly its size, so
// that the address sanitizer sees a read behind a datagram's end.
std::vector<std::vector<char>> datagramsOf(std::string_view bytes);

// A broken promise of a reader: tells which and ends the process, as a crash would, so that
// the fuzzer keeps the input.
[[noreturn]] void failCheck(std::string_view what);
inline void check(bool condition, std::string_view what) {
  if (!condition) failCheck(what);
}

// Works in the scratch folder for one input, and goes back afterwards to where libFuzzer keeps
// its corpus: for readers that work below the program's working folder.
struct InScratch {
  std::filesystem::path previous = std::filesystem::current_path();
  InScratch() { std::filesystem::current_path(scratchFolder()); }
  ~InScratch() { std::filesystem::current_path(previous); }
  InScratch(const InScratch&) = delete;
  InScratch& operator=(const InScratch&) = delete;
};

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace orv::fuzz
