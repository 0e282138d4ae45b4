#include "refdata/model_categories.h"

#include <array>

#include "refdata/code_tables.h"

namespace orv {

std::set<uint16_t> heavyModels;
std::set<uint16_t> largeModels;
std::set<uint16_t> buzjetModels;
std::set<uint16_t> highPerfModels;
std::set<uint16_t> rotorcraftModels;

int categoryOfModel(uint16_t index) {
  if (largeModels.contains(index)) return kCategoryLarge;
  if (heavyModels.contains(index)) return kCategoryHeavy;
  if (buzjetModels.contains(index)) return kCategoryBuzjets;
  if (rotorcraftModels.contains(index)) return kCategoryRotorcraft;
  if (highPerfModels.contains(index)) return kCategoryHighPerf;
  return kCategoryLight;
}

int categoryOfModelCode(std::string_view code) { return categoryOfModel(modelIndex(code)); }

std::string_view categoryName(int category) {
  static constexpr std::array<std::string_view, kCategoryCount> names{"Light", "Buzjets", "Large",
                                                                      "Heavy", "HighPerf", "Rotorcraft"};
  return category >= 0 && category < kCategoryCount ? names[static_cast<std::size_t>(category)] : std::string_view{};
}

void lf_clearModelCategories() {
  heavyModels.clear();
  largeModels.clear();
  buzjetModels.clear();
  highPerfModels.clear();
  rotorcraftModels.clear();
}

}  // namespace orv
