#include "liveries/livery_catalogue.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "foundation/log.h"
#include "foundation/status_values.h"
#include "liveries/catalogue_file.h"
#include "liveries/category_reports.h"
#include "liveries/inline_regcodes.h"
#include "liveries/livery_indexes.h"
#include "liveries/offline_regcodes.h"
#include "refdata/code_tables.h"
#include "refdata/similar_models.h"

namespace orv {

namespace {

// Groups the sorted list under airline (or the joined code of both airlines) and model. Pass
// one takes the records without a second airline, pass two those with one.
void buildLiveriesByAirline() {
  for (const bool joined : {false, true}) {
    std::uint16_t airline = 0, airline2 = 0, model = 0, key = 0;
    std::vector<CatalogueTitle>* titles = nullptr;
    for (const LiveryRecord& record : liveriesScannedList) {
      if ((record.code.airline2 != 0) != joined) continue;
      if (titles == nullptr || record.code.airline != airline || record.code.airline2 != airline2) {
        airline = record.code.airline;
        airline2 = record.code.airline2;
        key = joined ? airlineIndex(airlineCode(airline) + airlineCode(airline2)) : airline;
        titles = nullptr;
      }
      if (titles == nullptr || record.code.acType != model) {
        model = record.code.acType;
        titles = &liveriesByAirline[key][model];
      }
      titles->push_back(CatalogueTitle{record.title, record.code.cargo != 0, {}});
    }
  }
}

void splitByCargo() {
  airlineModelTitles[0].reserve(2048);
  airlineModelTitles[1].reserve(256);
  for (const auto& [airline, models] : liveriesByAirline)
    for (const auto& [model, titles] : models)
      for (const CatalogueTitle& title : titles)
        airlineModelTitles[title.cargo ? 1 : 0][airline][model].push_back(&title);
}

void buildModelTitles() {
  std::vector<std::tuple<std::uint16_t, const CatalogueTitle*>> all;
  all.reserve(17000);
  for (const auto& [airline, models] : liveriesByAirline)
    for (const auto& [model, titles] : models)
      for (const CatalogueTitle& title : titles) all.emplace_back(model, &title);
  std::stable_sort(all.begin(), all.end(),
                   [](const auto& a, const auto& b) { return std::get<0>(a) < std::get<0>(b); });
  for (const auto& [model, title] : all) modelTitles[title->cargo ? 1 : 0][model].push_back(title);
}

LiveryPresence presence() {
  LiveryPresence result;
  for (const auto& index : modelTitles)
    for (const auto& [model, titles] : index) result.modelsWithLivery.insert(model);
  for (const auto& [airline, models] : liveriesByAirline)
    for (const auto& [model, titles] : models) result.airlineModels[airline].insert(model);
  return result;
}

}  // namespace

void gf_processScannedLiveries(const std::filesystem::path& file) {
  if (gv_liveriesIndexed) {
    gf_log("Processing scanned liveries skipped; already done in previous start-up");
    liveriesScannedList.clear();
    return;
  }
  modelTitles[1].reserve(75);
  modelTitles[0].reserve(324);
  regcodeToTitle.reserve(36000);
  regcodeToTitle.max_load_factor(0.7f);

  gf_readLiveriesScanned(file);
  gScanStatus.liveries.show(static_cast<unsigned>(liveriesScannedList.size()));

  buildLiveriesByAirline();
  lf_indexCatalogueTitles();
  splitByCargo();

  gf_processInlineRegcodes();
  gf_processOfflineRegcodes();
  lf_attachTitleRegcodes();
  gf_log("{:5} registration codes", regcodeToTitle.size());

  buildModelTitles();
  gf_log("{:5} airlines, {} pax aircraft models and {} cargo aircraft models", liveriesByAirline.size(),
         modelTitles[0].size(), modelTitles[1].size());

  buildSimilarLists(presence());
  gf_log("");

  lf_reportCategories();
  lf_reportGenericLiveries();

  gv_liveriesIndexed = true;
  gf_repaint(ShownBand::Status);
  liveriesScannedList.clear();
}

}  // namespace orv
