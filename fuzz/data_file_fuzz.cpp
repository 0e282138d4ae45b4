// An encrypted data file as it lies in input/: the input is the .enc file. Mostly it fails
// authentication; the seeds are real files, so cut and extended streams are tried as well.
#include <cstdint>
#include <filesystem>

#include "fuzz_support.h"
#include "refdata/data_file_crypto.h"

using namespace orv;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path enc = fuzz::scratchFolder() / "data.enc";
  static const fs::path plain = fuzz::scratchFolder() / "data.xml";
  fuzz::writeInput(enc, fuzz::textOf(data, size));
  // A plain copy from an earlier read is overwritten, or removed with a failure.
  fuzz::writeInput(plain, "left from before");
  const bool ok = decryptDataFile(enc, plain);
  std::error_code ec;
  fuzz::check(ok == fs::exists(plain, ec), "a plain copy exists exactly after a successful decryption");
  if (ok) {
    const auto plainSize = fs::file_size(plain, ec);
    fuzz::check(size >= kDataHeaderBytes && plainSize <= size - kDataHeaderBytes, "the plain text is shorter");
  }
  return 0;
}
