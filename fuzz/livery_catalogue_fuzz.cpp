// The livery catalogue (output/LiveriesScanned.xml): the input is read as the file is read at
// start, then written and read back, which must give the same records in the same order.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "foundation/user_error.h"
#include "fuzz_support.h"
#include "liveries/catalogue_file.h"
#include "refdata/code_tables.h"

using namespace orv;
namespace fs = std::filesystem;

namespace {

std::vector<std::string> titles() {
  std::vector<std::string> out;
  for (const LiveryRecord& r : liveriesScannedList) out.push_back(r.title);
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path copy = fuzz::scratchFolder() / "LiveriesScanned.xml";
  liveriesScannedList.clear();
  try {
    lf_readLiveriesScannedText(fuzz::textOf(data, size), "LiveriesScanned.xml");
  } catch (const UserErrorException&) {
    // 51, 52, 533 or 999: a catalogue the reader refuses with its message.
  }
  for (const LiveryRecord& r : liveriesScannedList) fuzz::check(!r.title.empty(), "a record has its title");
  if (!liveriesScannedList.empty()) {
    const std::vector<std::string> read = titles();
    gf_saveLiveriesScanned(copy);
    gf_readLiveriesScanned(copy);
    fuzz::check(titles() == read, "a written catalogue reads back with the same records in the same order");
  }
  liveriesScannedList.clear();
  gf_resetCodeTables();
  return 0;
}
