#pragma once
// The category of a model: which of the five class sets of the dbase it stands in, or
// Light when in none. The number is also the aircraft's traffic class.
#include <cstdint>
#include <set>
#include <string_view>

namespace orv {

inline constexpr int kCategoryLight = 0;
inline constexpr int kCategoryBuzjets = 1;
inline constexpr int kCategoryLarge = 2;
inline constexpr int kCategoryHeavy = 3;
inline constexpr int kCategoryHighPerf = 4;
inline constexpr int kCategoryRotorcraft = 5;
inline constexpr int kCategoryCount = 6;

// Model indexes of each class set of the dbase.
extern std::set<uint16_t> heavyModels;
extern std::set<uint16_t> largeModels;
extern std::set<uint16_t> buzjetModels;
extern std::set<uint16_t> highPerfModels;
extern std::set<uint16_t> rotorcraftModels;

// A model in two sets is settled by the order Large, Heavy, Buzjets, Rotorcraft, HighPerf.
int categoryOfModel(uint16_t index);
int categoryOfModelCode(std::string_view code);
// "Light", "Buzjets", "Large", "Heavy", "HighPerf", "Rotorcraft"; empty for another number.
std::string_view categoryName(int category);

void lf_clearModelCategories();

}  // namespace orv
