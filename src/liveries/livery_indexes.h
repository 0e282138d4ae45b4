#pragma once
// The indexes of the installed liveries: built once from the catalogue at start-up, then read
// without locks by the engine's thread until the process ends or a new scan is asked for.
// Every title in them is a view on the one stored copy in liveriesByAirline; every key of
// airline or model is a 16-bit index into the code tables.
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace orv {

// One installed title, the single stored copy of its text.
struct CatalogueTitle {
  std::string text;
  bool cargo = false;
  // The in-line regcode that first claimed this text (titleToRegcode), set once the regcodes
  // are in, so that the registration-country choice needs no look-up per title.
  std::string_view regcode;
};

using TitleList = std::vector<const CatalogueTitle*>;

// Hash and equality that let a map keyed by std::string be searched with a string_view.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// Airline index (or index of the joined code of airline and second airline), to model index,
// to the titles in catalogue order. Owner of the title texts; ordered maps, so that walks are
// repeatable and the stored titles never move.
extern std::map<std::uint16_t, std::map<std::uint16_t, std::vector<CatalogueTitle>>> liveriesByAirline;
// [0] pax, [1] cargo: airline, to model, to titles.
extern std::array<std::unordered_map<std::uint16_t, std::unordered_map<std::uint16_t, TitleList>>, 2>
    airlineModelTitles;
// [0] pax, [1] cargo: model, to the titles of all airlines.
extern std::array<std::unordered_map<std::uint16_t, TitleList>, 2> modelTitles;
extern std::unordered_map<std::string, const CatalogueTitle*, TextHash, std::equal_to<>> regcodeToTitle;
extern std::unordered_map<std::string_view, std::string_view> titleToRegcode;
extern std::set<std::string, std::less<>> specialRegcodes;
extern std::set<std::string, std::less<>> uniqueRegcodes;
extern std::unordered_set<std::string_view> specialTitles;
// Models with a livery: [0] Light, [1] Buzjets, [2] Rotorcraft; each sorted by index.
extern std::array<std::vector<std::uint16_t>, 3> categoryModels;

// The indexes stand; a new start of the run cycle in the same process does not build them again.
inline bool gv_liveriesIndexed = false;

// The stored title of a text, the first in the walk of liveriesByAirline; nullptr when not installed.
const CatalogueTitle* gf_findCatalogueTitle(std::string_view text);
// The titles of an airline and model, [0] pax or [1] cargo; nullptr when there are none.
const TitleList* gf_airlineModelTitles(int cargoIndex, std::uint16_t airline, std::uint16_t model);
// The titles of a model of any airline, [0] pax or [1] cargo; nullptr when there are none.
const TitleList* gf_modelTitles(int cargoIndex, std::uint16_t model);

// Fills the look-up of stored titles by text; once liveriesByAirline stands.
void lf_indexCatalogueTitles();
// Hands each stored title its entry of titleToRegcode.
void lf_attachTitleRegcodes();

// Empties every index and the mark that they stand, for a new scan or a new process.
void gf_resetLiveryIndexes();

}  // namespace orv
