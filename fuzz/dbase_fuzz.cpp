// The dbase: the input is the plain XML, encrypted with the program's key as the download
// site does, then read as input/dbase.enc is read at start-up. The tables it builds are then
// asked what the engine and the livery matching ask.
#include <cstdint>
#include <filesystem>
#include <string>

#include "data_file_encrypt.h"
#include "foundation/user_error.h"
#include "fuzz_support.h"
#include "refdata/code_tables.h"
#include "refdata/dbase_reader.h"
#include "refdata/model_categories.h"
#include "refdata/prefix_groups.h"
#include "refdata/registrations.h"
#include "refdata/similar_models.h"
#include "refdata/valid_codes.h"
#include "refdata/wingspans.h"

using namespace orv;
namespace fs = std::filesystem;

namespace {

void askTheTables() {
  for (std::size_t i = 0; i < dbaseRecords.size() && i < 64; ++i) {
    const DbaseRecord& record = dbaseRecords[i];
    fuzz::check(!record.reg.empty() ? lookupRegistration(record.reg).has_value() : true,
                "a record is found by its reg");
    findRegistrationInTitle(record.reg);
    for (const std::string& variant : registrationVariants(record.reg)) lookupRegistration(variant);
  }
  for (const auto& [prefix, others] : prefixGroups) fuzz::check(!prefixGroup(prefix).empty(), "a prefix has its group");
  const std::size_t models = modelCount();
  for (std::size_t i = 0; i < models && i < 4096; ++i) {
    const auto index = static_cast<std::uint16_t>(i);
    const int category = categoryOfModel(index);
    fuzz::check(category >= kCategoryLight && category < kCategoryCount, "a model has a category");
    halfWingspan(index);
  }
  // Every valid model has a livery, and the first airline every second model.
  LiveryPresence presence;
  for (const std::string& code : validModels) presence.modelsWithLivery.insert(modelIndex(code));
  if (!validAirlines.empty()) {
    std::size_t i = 0;
    for (const std::string& code : validModels)
      if (i++ % 2 == 0) presence.airlineModels[airlineIndex(*validAirlines.begin())].insert(modelIndex(code));
  }
  buildSimilarLists(presence);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path enc = fuzz::scratchFolder() / "dbase.enc";
  static const fs::path plain = fuzz::scratchFolder() / "dbase.xml";
  fuzz::writeInput(enc, gf_encryptBytes(gf_dataKey(), fuzz::textOf(data, size)));
  gf_resetDbase();
  bool read = false;
  try {
    read = gf_readDbaseFile(enc);
  } catch (const UserErrorException&) {
    // A broken structure is the user's message; nothing else may leave the reader.
  }
  std::error_code ec;
  fuzz::check(!fs::exists(plain, ec), "no plain copy stays");
  if (read) askTheTables();
  return 0;
}
