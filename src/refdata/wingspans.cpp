#include "refdata/wingspans.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "foundation/log.h"
#include "refdata/code_tables.h"
#include "refdata/valid_codes.h"

namespace orv {

std::array<double, kWingspanSlots> halfWingspans{};
double maxHalfWingspan = 0.0;

double halfWingspan(uint16_t index) {
  try {
    return halfWingspans.at(index);
  } catch (const std::exception& e) {
    gf_log("hwsp: {} what: {}", index, e.what());
    return 35.0;
  }
}

void lf_fillWingspans(const std::vector<std::pair<std::string, double>>& entries) {
  std::map<std::string, double, std::less<>> halfSpans;
  for (const auto& [model, metres] : entries) {
    if (!isValidModel(model)) {
      gf_logError("wingspan model {} is not valid, skipped", model);
      continue;
    }
    const double half = metres * 0.5 * kNmPerMetre;
    halfSpans.emplace(model, half);  // the first entry of a model stands
    maxHalfWingspan = std::max(maxHalfWingspan, half);
  }
  try {
    for (const auto& [model, half] : halfSpans) halfWingspans.at(modelIndex(model)) = half;
  } catch (const std::exception& e) {
    gf_logError("wsp fill what: {}", e.what());
  }
}

void lf_clearWingspans() {
  halfWingspans.fill(0.0);
  maxHalfWingspan = 0.0;
}

}  // namespace orv
