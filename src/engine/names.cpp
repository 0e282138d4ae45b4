// Log names of the engine's enumerations and the class table lookup.
#include <array>
#include <string_view>

#include "engine/ac_class.h"
#include "engine/live_aircraft.h"

namespace orv {
namespace {

template <std::size_t N>
std::string_view nameOf(const std::array<std::string_view, N>& names, std::int32_t i) {
  return i >= 0 && static_cast<std::size_t>(i) < N ? names[static_cast<std::size_t>(i)] : std::string_view("?");
}

}  // namespace

std::string_view gf_simStateName(std::int32_t s) {
  static constexpr std::array<std::string_view, 5> names{"buffer", "adding2sim", "active", "liveryrespawn",
                                                         "removingfromsim"};
  return nameOf(names, s);
}

std::string_view gf_flightStateName(std::int32_t s) {
  static constexpr std::array<std::string_view, 8> names{"pushing_back", "pushed_back", "taxi",   "take_off",
                                                         "flying",       "parking",     "parked", "birth"};
  return nameOf(names, s);
}

std::string_view gf_acClassName(std::int32_t c) {
  static constexpr std::array<std::string_view, 6> names{"Light", "Buzjets", "Large", "Heavy", "HighPerf", "Rotorcraft"};
  return nameOf(names, c);
}

const AcClassTable& gf_classTable(std::int32_t acClass) {
  return acClass >= 0 && acClass < static_cast<std::int32_t>(kAcClassTables.size())
             ? kAcClassTables[static_cast<std::size_t>(acClass)]
             : kAcClassTables[kLight];
}

}  // namespace orv
