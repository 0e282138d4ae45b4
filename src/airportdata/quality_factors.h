#pragma once
// How much is known about an airport, on a scale to 100: one factor for its real options and
// one for its soft options.
#include <cstdint>
#include <string>
#include <vector>

#include "airportdata/stands.h"

namespace orv {

struct QualityFactors {
  std::int32_t real = -1;  // -1: unknown
  std::int32_t soft = -1;
  friend bool operator==(const QualityFactors&, const QualityFactors&) = default;
};

// Both -1 for an empty table or one without any option; 0 and 0 when only helipads and fuel
// stands carry weight.
QualityFactors computeQualityFactors(const std::vector<Stand>& stands);

// Two blanks for unknown factors; "real/soft" below 45 real, from there the real factor alone.
std::string qualityFactorText(QualityFactors factors);

}  // namespace orv
