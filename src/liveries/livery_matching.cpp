#include "liveries/livery_matching.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <vector>

#include "foundation/log.h"
#include "foundation/parameters.h"
#include "foundation/random.h"
#include "liveries/airline_names.h"
#include "liveries/failed_titles.h"
#include "liveries/livery_indexes.h"
#include "liveries/match_summary.h"
#include "liveries/title_choice.h"
#include "refdata/ac_code_text.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/similar_models.h"

namespace orv {

namespace {

constexpr int kStepRegUnique = 0;
constexpr int kStepReg = 1;
constexpr int kStepAirlineModel = 2;
constexpr int kStepSimilar = 3;
constexpr int kStepGeneric = 4;

// The categories that may wear another airline's paint: Light, Buzjets, Rotorcraft.
bool takesAnyPaint(int category) {
  return category == kCategoryLight || category == kCategoryBuzjets || category == kCategoryRotorcraft;
}

int cargoIndex(const AcCode& code) { return code.cargo ? 1 : 0; }

bool findAirlineModel(LiveryQuery& ac, std::uint16_t airline, std::uint16_t model, int index) {
  if (const TitleList* titles = gf_airlineModelTitles(index, airline, model)) gf_pickTitle(ac, *titles);
  return !ac.title.empty();
}

bool findPvtByCountry(LiveryQuery& ac, std::uint16_t airline, std::uint16_t model, int index) {
  const TitleList* titles = gf_airlineModelTitles(index, airline, model);
  return titles != nullptr && gf_pickByPrefix(ac, *titles);
}

// The first title of `airline` that carries the name of `nameOf` (another airline's code).
bool findOtherAirlineName(LiveryQuery& ac, int index, std::uint16_t airline, std::uint16_t model,
                          std::uint16_t nameOf) {
  const TitleList* titles = gf_airlineModelTitles(index, airline, model);
  if (titles == nullptr) return false;
  const std::string_view name = gf_airlineNameInTitles(airlineCode(nameOf));
  for (const CatalogueTitle* title : *titles) {
    if (title->text.find(name) != std::string::npos) {
      ac.title = title->text;
      return true;
    }
  }
  return false;
}

bool matchCode(LiveryQuery& ac, const AcCode& code, int index) {
  if (code.airline2 == 0) {
    if (code.airline == airlineIndex("PVT") && findPvtByCountry(ac, code.airline, code.acType, index)) return true;
    return findAirlineModel(ac, code.airline, code.acType, index);
  }
  const std::uint16_t joined = airlineIndex(airlineCode(code.airline) + airlineCode(code.airline2));
  return findAirlineModel(ac, joined, code.acType, index) ||
         findOtherAirlineName(ac, index, code.airline2, code.acType, code.airline) ||
         findOtherAirlineName(ac, index, code.airline, code.acType, code.airline2) ||
         findAirlineModel(ac, code.airline2, code.acType, index) ||
         findAirlineModel(ac, code.airline, code.acType, index);
}

// A freighter without a cargo livery takes a passenger one; never the other way round.
bool matchCodeCargoAware(LiveryQuery& ac, const AcCode& code) {
  return matchCode(ac, code, cargoIndex(code)) || (code.cargo && matchCode(ac, code, 0));
}

bool matchSimilar(LiveryQuery& ac, const AcCode& code) {
  const std::uint16_t airline = code.airline2 != 0 ? code.airline2 : code.airline;
  const auto byAirline = airlineSimilar.find(airline);
  if (byAirline == airlineSimilar.end()) return false;
  const auto similar = byAirline->second.find(code.acType);
  if (similar == byAirline->second.end()) return false;
  gf_shuffle(similar->second);
  for (const std::uint16_t model : similar->second) {
    if (categoryOfModel(model) != ac.acClass) continue;
    AcCode other = code;
    other.acType = model;
    if (matchCode(ac, other, cargoIndex(code)) || (code.cargo && matchCode(ac, other, 0))) return true;
  }
  return false;
}

bool matchAnyAirline(LiveryQuery& ac, std::uint16_t model) {
  const TitleList* titles = gf_modelTitles(cargoIndex(ac.code), model);
  if (titles == nullptr || ac.reg.empty()) return false;
  if (gf_pickByPrefix(ac, *titles)) return true;
  gf_pickTitle(ac, *titles);
  return !ac.title.empty();
}

// Steps 4 to 6: a generic paint, any airline's paint of the model, then of a similar model or
// of one of the category. The step found, or nothing.
std::optional<int> matchGeneric(LiveryQuery& ac, bool cargoHint) {
  AcCode generic = ac.code;
  if (cargoHint) generic.cargo = 1;
  generic.airline = airlineIndex("ZZZ");
  if (matchCodeCargoAware(ac, generic)) return kStepGeneric;
  if (!takesAnyPaint(ac.acClass)) return std::nullopt;
  if (matchAnyAirline(ac, ac.code.acType)) return 5;

  std::vector<std::uint16_t> alternatives;
  if (auto similar = similarAvailable.find(ac.code.acType); similar != similarAvailable.end()) {
    gf_shuffle(similar->second);
    alternatives = similar->second;
  } else {
    const int category = categoryOfModel(ac.code.acType);
    const std::size_t slot = category == kCategoryLight ? 0 : category == kCategoryBuzjets ? 1 : 2;
    const auto& models = categoryModels[slot];
    if (takesAnyPaint(category) && !models.empty()) alternatives.push_back(models[gf_randomIndex(models.size())]);
  }
  for (const std::uint16_t model : alternatives)
    if (matchAnyAirline(ac, model)) return 6;
  return std::nullopt;
}

// How one ladder differs between live and parked aircraft.
struct Ladder {
  bool live;
  const LiveryStand* stand;  // parked only

  // A title found at `step` stands unless the simulator has refused it before.
  bool accept(LiveryQuery& ac, int step) const {
    if (ac.title.empty()) return false;
    if (gFailedTitles.contains(ac.title)) {
      ac.title = {};
      return false;
    }
    gf_logIndented("{} ={}= {}", ac.description, step, ac.title);
    if (live) {
      ++matchCounters[static_cast<std::size_t>(step)];
      ac.reverser = ac.title.find("FSLTL_") != std::string_view::npos ? 1 : 0;
    }
    return true;
  }

  bool run(LiveryQuery& ac) const {
    ac.title = {};
    if (!ac.reg.empty()) {
      if (const auto it = regcodeToTitle.find(ac.reg); it != regcodeToTitle.end()) {
        ac.title = it->second->text;
        if (accept(ac, uniqueRegcodes.contains(ac.reg) ? kStepRegUnique : kStepReg)) return true;
      }
    }
    if (MATCHING_DEPTH.value < 2) return false;
    if (ac.code.airline == airlineIndex("PVT")) {
      AcCode generic = ac.code;
      generic.airline = airlineIndex("ZZZ");
      if (stand != nullptr) generic.cargo = stand->cargo ? 1 : 0;
      matchCodeCargoAware(ac, generic);
      if (accept(ac, kStepGeneric)) return true;
    }
    matchCodeCargoAware(ac, ac.code);
    if (accept(ac, kStepAirlineModel)) return true;
    if (MATCHING_DEPTH.value < 3) return false;
    matchSimilar(ac, ac.code);
    if (accept(ac, kStepSimilar)) return true;
    if (MATCHING_DEPTH.value != 4) return false;
    const std::optional<int> step = matchGeneric(ac, stand != nullptr && stand->cargo);
    return step && accept(ac, *step);
  }
};

}  // namespace

void gf_findLiveryLive(LiveryQuery& ac) { Ladder{true, nullptr}.run(ac); }

bool gf_findLiveryParked(LiveryQuery& ac, const LiveryStand& stand) {
  if (!ac.title.empty()) {
    gf_logIndented("{} =s= {}", ac.description, ac.title);
    return true;
  }
  if (Ladder{false, &stand}.run(ac)) return true;
  gf_log("{:8}: {} no livery match ...", stand.id, fmt::format("{:8} {} {}", ac.cs, ac.reg, gf_acCodeText(ac.code)));
  return false;
}

}  // namespace orv
