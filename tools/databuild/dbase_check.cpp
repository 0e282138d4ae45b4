#include "dbase_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <utility>

#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/registrations.h"
#include "refdata/valid_codes.h"
#include "refdata/wingspans.h"

namespace orv {
namespace {

// A record without an airline is a private or unknown operator; one without a model tells nothing.
void checkRecord(const DbaseRecord& record, std::vector<std::string>& faults) {
  for (const uint16_t index : {record.code.airline, record.code.airline2}) {
    const std::string code = airlineCode(index);
    if (!code.empty() && !isValidAirline(code))
      faults.push_back(fmt::format("registration {}: airline {} is not a valid airline code", record.reg, code));
  }
  const std::string model = modelCode(record.code.acType);
  if (!isValidModel(model))
    faults.push_back(model.empty()
                         ? fmt::format("registration {}: no model", record.reg)
                         : fmt::format("registration {}: model {} is not a valid model code", record.reg, model));
}

// The valid models most used by the registrations, the most used first; equal counts by code.
std::vector<std::string> mostCommonModels(std::size_t count) {
  std::map<std::string, std::size_t> uses;
  for (const DbaseRecord& record : dbaseRecords)
    if (std::string model = modelCode(record.code.acType); isValidModel(model)) ++uses[std::move(model)];
  std::vector<std::pair<std::string, std::size_t>> ranked(uses.begin(), uses.end());
  std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
  std::vector<std::string> models;
  for (std::size_t i = 0; i < std::min(count, ranked.size()); ++i) models.push_back(ranked[i].first);
  return models;
}

bool hasWingspan(const std::string& model) { return halfWingspan(modelIndex(model)) > 0.0; }

}  // namespace

DbaseCheck checkDbaseTables(std::size_t commonTypes) {
  DbaseCheck check;
  check.registrations = dbaseRecords.size();
  check.models = validModels.size();
  check.airlines = validAirlines.size();
  for (const DbaseRecord& record : dbaseRecords) checkRecord(record, check.faults);

  for (const std::string& model : validModels) {
    if (hasWingspan(model)) {
      ++check.modelsWithWingspan;
      continue;
    }
    const int category = categoryOfModelCode(model);
    if (category == kCategoryLarge || category == kCategoryHeavy || category == kCategoryBuzjets)
      check.faults.push_back(fmt::format("model {} of the class {} has no wing span", model, categoryName(category)));
  }
  const std::vector<std::string> common = mostCommonModels(commonTypes);
  for (std::size_t rank = 0; rank < common.size(); ++rank)
    if (!hasWingspan(common[rank]))
      check.faults.push_back(
          fmt::format("model {}, number {} of the most common types, has no wing span", common[rank], rank + 1));
  return check;
}

}  // namespace orv
