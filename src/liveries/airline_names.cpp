#include "liveries/airline_names.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orv {

namespace {
// Sorted by code.
constexpr std::array<std::pair<std::string_view, std::string_view>, 35> kNames{{
    {"AAL", "American"},    {"ACA", "Canada"},     {"AFR", "France"},    {"ASA", "Alaska"},   {"ASH", "Mesa"},
    {"AVA", "Avianca"},     {"BAW", "British"},    {"BOX", "Aerologic"}, {"CAI", "Corendon"}, {"CFE", "Cityflyer"},
    {"DAE", "DHL Aero"},    {"DAL", "Delta"},      {"DHK", "DHL Air"},   {"EDV", "Endeavor"}, {"EZY", "easyjet"},
    {"FDX", "FedEx"},       {"FJO", "Flexjet"},    {"GJS", "GoJet"},     {"IBE", "Iberia"},   {"JIA", "PSA Airlines"},
    {"JZA", "Jazz"},        {"KLC", "Cityhopper"}, {"LRC", "Avianca"},   {"PDT", "Piedmont"}, {"PRM", "Prime"},
    {"QLK", "Quantaslink"}, {"QXE", "Horizon"},    {"RPA", "Republic"},  {"RYR", "Ryanair"},  {"SKW", "SkyWest"},
    {"SWA", "Southwest"},   {"UAL", "United"},     {"UPS", "UPS"},       {"VJT", "VistaJet"}, {"WJA", "WestJet"},
}};
static_assert(std::ranges::is_sorted(kNames, {}, &std::pair<std::string_view, std::string_view>::first));
}  // namespace

std::string_view gf_airlineNameInTitles(std::string_view code) {
  const auto it = std::ranges::lower_bound(kNames, code, {}, &std::pair<std::string_view, std::string_view>::first);
  return it != kNames.end() && it->first == code ? it->second : std::string_view("not found");
}

}  // namespace orv
