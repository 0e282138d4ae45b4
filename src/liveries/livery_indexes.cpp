#include "liveries/livery_indexes.h"

#include "liveries/match_memory.h"

namespace orv {

std::map<std::uint16_t, std::map<std::uint16_t, std::vector<CatalogueTitle>>> liveriesByAirline;
std::array<std::unordered_map<std::uint16_t, std::unordered_map<std::uint16_t, TitleList>>, 2> airlineModelTitles;
std::array<std::unordered_map<std::uint16_t, TitleList>, 2> modelTitles;
std::unordered_map<std::string, const CatalogueTitle*, TextHash, std::equal_to<>> regcodeToTitle;
std::unordered_map<std::string_view, std::string_view> titleToRegcode;
std::set<std::string, std::less<>> specialRegcodes;
std::set<std::string, std::less<>> uniqueRegcodes;
std::unordered_set<std::string_view> specialTitles;
std::array<std::vector<std::uint16_t>, 3> categoryModels;

namespace {
std::unordered_map<std::string_view, const CatalogueTitle*> titleByText;
}  // namespace

const CatalogueTitle* gf_findCatalogueTitle(std::string_view text) {
  const auto it = titleByText.find(text);
  return it == titleByText.end() ? nullptr : it->second;
}

const TitleList* gf_airlineModelTitles(int cargoIndex, std::uint16_t airline, std::uint16_t model) {
  const auto& byAirline = airlineModelTitles[cargoIndex != 0 ? 1 : 0];
  const auto a = byAirline.find(airline);
  if (a == byAirline.end()) return nullptr;
  const auto m = a->second.find(model);
  return m == a->second.end() || m->second.empty() ? nullptr : &m->second;
}

const TitleList* gf_modelTitles(int cargoIndex, std::uint16_t model) {
  const auto& byModel = modelTitles[cargoIndex != 0 ? 1 : 0];
  const auto m = byModel.find(model);
  return m == byModel.end() || m->second.empty() ? nullptr : &m->second;
}

void lf_indexCatalogueTitles() {
  titleByText.clear();
  for (const auto& [airline, models] : liveriesByAirline)
    for (const auto& [model, titles] : models)
      for (const CatalogueTitle& title : titles) titleByText.try_emplace(title.text, &title);
}

void lf_attachTitleRegcodes() {
  for (auto& [airline, models] : liveriesByAirline)
    for (auto& [model, titles] : models)
      for (CatalogueTitle& title : titles) {
        const auto it = titleToRegcode.find(title.text);
        title.regcode = it == titleToRegcode.end() ? std::string_view() : it->second;
      }
}

void gf_resetLiveryIndexes() {
  // Views on the stored titles go first.
  lf_clearLiveryCache();
  categoryModels = {};
  specialRegcodes.clear();
  uniqueRegcodes.clear();
  specialTitles.clear();
  regcodeToTitle.clear();
  titleToRegcode.clear();
  titleByText.clear();
  for (auto& index : modelTitles) index.clear();
  for (auto& index : airlineModelTitles) index.clear();
  liveriesByAirline.clear();
  gv_liveriesIndexed = false;
}

}  // namespace orv
