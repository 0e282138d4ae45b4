#pragma once
// Half the wing span of each model, in nautical miles, for keeping aircraft apart on the ground.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace orv {

inline constexpr std::size_t kWingspanSlots = 2700;
inline constexpr double kNmPerMetre = 0.0005399568034557236;

// By model index; 0 for a model without an entry.
extern std::array<double, kWingspanSlots> halfWingspans;
extern double maxHalfWingspan;

// An index beyond the table is logged and gives 35.0.
double halfWingspan(uint16_t index);

// The entries of the dbase, (model code, metres) in file order. Codes that are not valid
// models are logged and skipped; a model's first entry stands.
void lf_fillWingspans(const std::vector<std::pair<std::string, double>>& entries);

void lf_clearWingspans();

}  // namespace orv
