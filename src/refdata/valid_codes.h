#pragma once
// Which model and airline codes are real. The code tables accept any text; these sets,
// read from the dbase, tell a real code from nonsense.
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace orv {

using CodeSet = std::set<std::string, std::less<>>;

// ICAO model codes (section aircrafts) and ICAO airline codes (section ICAO_airlines).
extern CodeSet validModels;
extern CodeSet validAirlines;
// Freighter models and freight airlines.
extern CodeSet cargoTypes;
extern CodeSet cargoOperators;
// Wrong model codes seen in users' liveries, to the right code.
extern std::map<std::string, std::string, std::less<>> modelFixes;

// The empty text is never valid.
bool isValidAirline(std::string_view code);
bool isValidModel(std::string_view code);
std::optional<std::string> modelFix(std::string_view code);

void lf_clearValidCodes();

}  // namespace orv
