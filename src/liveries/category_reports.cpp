#include "liveries/category_reports.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "liveries/livery_indexes.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"

namespace orv {

namespace {

const char* plural(std::size_t count) { return count == 1 ? "" : "s"; }

// Sorted model indexes, twenty codes to a line, each line led by two blanks.
void logModels(const std::vector<std::uint16_t>& models) {
  for (std::size_t first = 0; first < models.size(); first += 20) {
    std::string line = "  ";
    for (std::size_t i = first; i < std::min(models.size(), first + 20); ++i) {
      if (i > first) line += ',';
      line += modelCode(models[i]);
    }
    gf_log(line);
  }
}

// The traffic class that a category without liveries switches off, and why.
struct ClassSwitch {
  CheckboxParameter* parameter;
  const char* reason;
};

const ClassSwitch* classOf(int category) {
  static const ClassSwitch light{&LIGHT_AIRCRAFT, "light aircraft"};
  static const ClassSwitch highPerf{&HIGH_PERF_AIRCRAFT, "High Perf aircraft"};
  static const ClassSwitch helicopters{&HELICOPTERS, "Helicopters"};
  switch (category) {
    case kCategoryLight: return &light;
    case kCategoryHighPerf: return &highPerf;
    case kCategoryRotorcraft: return &helicopters;
    default: return nullptr;
  }
}

void switchOff(const ClassSwitch& traffic) {
  if (traffic.parameter->value) {
    gf_log("{} temporarily switched off because you do not have {} installed", traffic.parameter->name, traffic.reason);
    traffic.parameter->set(false);
    saveBool(*traffic.parameter);
  }
  lf_showClassBox(traffic.parameter, false);
}

void reportCategory(int category) {
  std::size_t pax = 0, cargo = 0;
  std::vector<std::uint16_t> models;
  for (int index = 0; index < 2; ++index)
    for (const auto& [model, titles] : modelTitles[static_cast<std::size_t>(index)]) {
      if (categoryOfModel(model) != category) continue;
      (index == 0 ? pax : cargo) += titles.size();
      models.push_back(model);
    }

  const ClassSwitch* traffic = classOf(category);
  if (pax + cargo == 0) {
    gf_log("Category {}: No livery found", categoryName(category));
    if (traffic != nullptr) switchOff(*traffic);
  } else {
    const std::string cargoText = cargo > 0 ? fmt::format(" and {} cargo liverie{}", cargo, plural(cargo)) : "";
    gf_log("Category {}: {} pax liverie{}{}", categoryName(category), pax, plural(pax), cargoText);
    if (traffic != nullptr) lf_showClassBox(traffic->parameter, true);
  }
  if (models.empty()) return;
  std::sort(models.begin(), models.end());
  models.erase(std::unique(models.begin(), models.end()), models.end());
  if (category == kCategoryLight) categoryModels[0] = models;
  if (category == kCategoryBuzjets) categoryModels[1] = models;
  if (category == kCategoryRotorcraft) categoryModels[2] = models;
  logModels(models);
}

}  // namespace

void lf_reportCategories() {
  for (int category = 0; category < kCategoryCount; ++category) reportCategory(category);
}

void lf_reportGenericLiveries() {
  const auto generic = liveriesByAirline.find(airlineIndex("ZZZ"));
  if (generic == liveriesByAirline.end()) {
    gf_log("No generic liveries");
    return;
  }
  std::vector<std::uint16_t> models;
  for (const auto& [model, titles] : generic->second) models.push_back(model);
  std::sort(models.begin(), models.end());
  models.erase(std::unique(models.begin(), models.end()), models.end());
  gf_log("{} model{} have a generic livery", models.size(), plural(models.size()));
  logModels(models);
}

}  // namespace orv
