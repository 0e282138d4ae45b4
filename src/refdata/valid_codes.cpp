#include "refdata/valid_codes.h"

namespace orv {

CodeSet validModels;
CodeSet validAirlines;
CodeSet cargoTypes;
CodeSet cargoOperators;
std::map<std::string, std::string, std::less<>> modelFixes;

bool isValidAirline(std::string_view code) { return !code.empty() && validAirlines.contains(code); }
bool isValidModel(std::string_view code) { return !code.empty() && validModels.contains(code); }

std::optional<std::string> modelFix(std::string_view code) {
  if (auto it = modelFixes.find(code); it != modelFixes.end()) return it->second;
  return std::nullopt;
}

void lf_clearValidCodes() {
  validModels.clear();
  validAirlines.clear();
  cargoTypes.clear();
  cargoOperators.clear();
  modelFixes.clear();
}

}  // namespace orv
