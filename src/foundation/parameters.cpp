#include "foundation/parameters.h"

#include <algorithm>

namespace orv {

namespace detail {
std::vector<std::int32_t> steps(std::int32_t from, std::int32_t to, std::int32_t step, std::vector<std::int32_t> tail) {
  std::vector<std::int32_t> v;
  for (std::int32_t x = from; x <= to; x += step) v.push_back(x);
  v.insert(v.end(), tail.begin(), tail.end());
  return v;
}

std::vector<float> maxFitChoices() {
  std::vector<float> v;
  for (int half = 1; half <= 10; ++half) v.push_back(0.5f * static_cast<float>(half));
  for (float h : {6.f, 7.f, 8.f, 9.f, 10.f, 12.f, 15.f, 18.f, 21.f, 24.f}) v.push_back(h);
  return v;
}

std::vector<std::string> aiPackageOrders() {
  // Every ordering of every non-empty subset of the four packages, larger subsets first;
  // within a size, subsets and orderings follow the fixed lists below.
  return {"AIG, FSLTL, JF, MTL", "AIG, FSLTL, MTL, JF", "AIG, JF, FSLTL, MTL", "AIG, JF, MTL, FSLTL",
          "AIG, MTL, FSLTL, JF", "AIG, MTL, JF, FSLTL", "FSLTL, AIG, JF, MTL", "FSLTL, AIG, MTL, JF",
          "FSLTL, JF, AIG, MTL", "FSLTL, JF, MTL, AIG", "FSLTL, MTL, AIG, JF", "FSLTL, MTL, JF, AIG",
          "JF, AIG, FSLTL, MTL", "JF, AIG, MTL, FSLTL", "JF, FSLTL, AIG, MTL", "JF, FSLTL, MTL, AIG",
          "JF, MTL, AIG, FSLTL", "JF, MTL, FSLTL, AIG", "MTL, AIG, FSLTL, JF", "MTL, AIG, JF, FSLTL",
          "MTL, FSLTL, AIG, JF", "MTL, FSLTL, JF, AIG", "MTL, JF, AIG, FSLTL", "MTL, JF, FSLTL, AIG",
          "AIG, FSLTL, JF",      "AIG, JF, FSLTL",      "FSLTL, AIG, JF",      "FSLTL, JF, AIG",
          "JF, AIG, FSLTL",      "JF, FSLTL, AIG",      "AIG, FSLTL, MTL",     "AIG, MTL, FSLTL",
          "FSLTL, AIG, MTL",     "FSLTL, MTL, AIG",     "MTL, AIG, FSLTL",     "MTL, FSLTL, AIG",
          "AIG, JF, MTL",        "AIG, MTL, JF",        "JF, AIG, MTL",        "JF, MTL, AIG",
          "MTL, AIG, JF",        "MTL, JF, AIG",        "FSLTL, JF, MTL",      "FSLTL, MTL, JF",
          "JF, FSLTL, MTL",      "JF, MTL, FSLTL",      "MTL, FSLTL, JF",      "MTL, JF, FSLTL",
          "AIG, FSLTL",          "FSLTL, AIG",          "AIG, JF",             "JF, AIG",
          "AIG, MTL",            "MTL, AIG",            "FSLTL, JF",           "JF, FSLTL",
          "FSLTL, MTL",          "MTL, FSLTL",          "JF, MTL",             "MTL, JF",
          "AIG",                 "FSLTL",               "JF",                  "MTL"};
}
}  // namespace detail

const std::vector<ValueParameter<bool>*>& gf_boolList() {
  static const std::vector<ValueParameter<bool>*> list{&RANDOM};
  return list;
}

const std::vector<CheckboxParameter*>& gf_checkboxList() {
  static const std::vector<CheckboxParameter*> list{
      &ALWAYS_ON_TOP,  &OBJECTID_LIST,      &NAV_LIGHTS_WHILE_PARKED, &AEROWINX,           &GUID_CHANGES,
      &SCAN_LIVERIES,  &LIG_AUTOMATIC,      &LIG_PRIORITIZE,          &SCAN_AIRPORTS,      &LIGHT_AIRCRAFT,
      &HELICOPTERS,    &HIGH_PERF_AIRCRAFT, &AUTO_RANGE,              &AIRBORNE_ONLY,      &COLLISION_USER_GND,
      &COLLISION_USER_AIR, &COLLISION_LIVE_PARKED_GND, &STRAIGHT_PBS_ONLY, &INITIAL_LOAD_ONLY, &WEEK,
      &PARK_SOFT};
  return list;
}

const std::vector<ValueParameter<std::int32_t>*>& gf_intList() {
  static const std::vector<ValueParameter<std::int32_t>*> list{
      &MAIN_WINDOW_X, &MAIN_WINDOW_Y, &LAST_EPOCH_TIME, &CUSTOM_PARKING_PERCENTAGE, &HOLDING_THRESHOLD_METERS,
      &MAX_HOLDING_MINUTES, &MAX_FIT};
  return list;
}

const std::vector<ComboParameter*>& gf_comboList() {
  static const std::vector<ComboParameter*> list{&MATCHING_DEPTH, &RANGE,          &AR_ABOVE_HEIGHT, &MAX_PARK_SEL,
                                                 &MAX_LIVE_SEL,   &AIRP_RANGE,     &AIRP_HEIGHT};
  return list;
}

const std::vector<ValueParameter<std::string>*>& gf_stringList() {
  static const std::vector<ValueParameter<std::string>*> list = [] {
    std::vector<ValueParameter<std::string>*> v{&PROGRAM_VERSION, &MSFS_INSTALL_PATH, &PORT_NUMBER};
    for (auto& f : lfolder) v.push_back(&f);
    v.insert(v.end(), {&AIG_VERSION, &DBASE_VERSION, &AIRPORTS_VERSION, &LIV_SCAN_VERSION, &ADDONS_SCAN_VERSION,
                       &MYSIMADDON24_VERSION, &MSFS_2024_INSTALL_PATH, &AI_PACKAGE_SELECTOR, &DESTINATION});
    return v;
  }();
  return list;
}

const std::vector<EditParameter*>& gf_editList() {
  static const std::vector<EditParameter*> list{&BLOCK_CALLSIGN, &SIM_CHOICE};
  return list;
}

}  // namespace orv
