// Replays inputs through one fuzz target without libFuzzer, so that the normal build keeps
// every corpus: each file named, and each file in a folder named, in name order. A failing
// input ends the process as it ended the fuzzer; the last "replay" line names it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  std::vector<fs::path> inputs;
  for (int i = 1; i < argc; ++i) {
    const fs::path named = argv[i];
    if (fs::is_directory(named)) {
      for (const auto& entry : fs::directory_iterator(named))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    } else if (fs::is_regular_file(named)) {
      inputs.push_back(named);
    } else {
      std::fprintf(stderr, "no such file or folder: %s\n", argv[i]);
      return 2;
    }
  }
  std::sort(inputs.begin(), inputs.end());
  // An empty corpus would pass without testing anything.
  if (inputs.empty()) {
    std::fprintf(stderr, "usage: %s FILE_OR_FOLDER...; no inputs found\n", argv[0]);
    return 2;
  }
  for (const fs::path& input : inputs) {
    std::printf("replay %s\n", input.c_str());
    std::fflush(stdout);
    std::ifstream in(input, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    // A zero-sized input still gets a valid pointer, as libFuzzer gives it.
    static const std::uint8_t kNothing = 0;
    LLVMFuzzerTestOneInput(bytes.empty() ? &kNothing : reinterpret_cast<const std::uint8_t*>(bytes.data()),
                           bytes.size());
  }
  std::printf("%zu inputs replayed\n", inputs.size());
  return 0;
}
