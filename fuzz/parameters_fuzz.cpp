// parameters.xml as the user folder holds it: the input is the file. It is read, one
// parameter is saved into it, and it is read again, as a start and a change of a setting do.
#include <pugixml.hpp>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "foundation/generations.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/user_paths.h"
#include "fuzz_support.h"

using namespace orv;
namespace fs = std::filesystem;

namespace {

void checkLimits() {
  for (auto* p : gf_intList())
    fuzz::check(p->value >= p->minValue && p->value <= p->maxValue, "an int parameter within its limits");
  for (auto* p : gf_comboList())
    fuzz::check(p->value >= p->minValue && p->value <= p->maxValue, "a combo parameter within its limits");
}

// Whatever the input was, the saved file is XML with every stored parameter; an old file
// without root keeps its form until the first change of a single parameter.
void checkSavedFile(const fs::path& file, bool changed) {
  pugi::xml_document doc;
  fuzz::check(static_cast<bool>(doc.load_file(file.c_str())), "the saved parameters.xml loads");
  const pugi::xml_node params = changed ? doc.child("root").child("parameters") : gf_parametersNode(doc);
  fuzz::check(static_cast<bool>(params), "the saved parameters.xml has its parameters element");
  for (auto* p : gf_intList())
    fuzz::check(static_cast<bool>(params.find_child_by_attribute("parameter", "name", p->name.c_str())),
                "every int parameter is in the saved file");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path file = [] {
    setenv("ORVANE_APPDATA", fuzz::scratchFolder().c_str(), 1);
    fs::create_directories(gf_userFolder());
    return gf_parametersPath();
  }();
  fuzz::writeInput(file, fuzz::textOf(data, size));
  std::error_code ec;
  fs::remove(gf_generationPath(file, "0"), ec);

  gf_readParameters();
  checkLimits();
  checkSavedFile(file, false);

  const std::int32_t x = MAIN_WINDOW_X.value == 123 ? 321 : 123;
  MAIN_WINDOW_X.set(x);
  saveInt(MAIN_WINDOW_X);
  gf_readParameters();
  fuzz::check(MAIN_WINDOW_X.value == x, "a saved parameter reads back");
  checkSavedFile(file, true);
  return 0;
}
