#include "simlink/user_model.h"

#include <fmt/format.h>

#include <array>
#include <utility>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/status_values.h"
#include "foundation/user_error.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/wingspans.h"

namespace orv {
namespace {

using Pair = std::pair<std::string_view, std::string_view>;

// "ATC MODEL" texts of popular aircraft that are no ICAO code; compared whole.
constexpr std::array<Pair, 4> kModelReplacements{{
    {"A350-900", "A359"},
    {"N738B", "B38M"},
    {"777", "772"},
    {"A330-200 (RR)", "A332"},
}};

// A "737" is told apart by its title, in this order.
constexpr std::array<Pair, 4> kDg737Titles{{
    {"DG 737-800", "B738"},
    {"DG 737-700", "B737"},
    {"DG 737-600", "B736"},
    {"DG 737-900", "B739"},
}};

// Titles of models that give no usable "ATC MODEL"; the first 13 bytes compared whole.
constexpr std::size_t kTitlePrefixBytes = 13;
constexpr std::array<Pair, 3> kModelsByTitle{{
    {"Aerosoft A319", "A319"},
    {"Aerosoft A320", "A320"},
    {"Aerosoft A321", "A321"},
}};

double lf_wingOf(std::string_view code) { return halfWingspan(modelIndex(code)); }

void lf_setModelKnown(bool known) {
  gSimStatus.userModelKnown.store(known);
  gf_repaint(ShownBand::Status);
}

void lf_readModel(std::string raw) {
  if (raw.empty()) {
    gSimStatus.title.show("Unknown (encrypted?) aircraft");
    gf_repaint(ShownBand::Status);
    setMessage("171: No model info from your user aircraft received in SimConnect, CRJ7 is taken instead", true);
    const double crj = lf_wingOf("CRJ7");
    gv_userHalfWingSpan = crj != 0 ? crj : maxHalfWingspan;
    return;
  }
  gf_logIndented(fmt::format("model raw: {}", raw));
  raw = gf_normaliseUserModel(std::move(raw), gUserTitle);
  std::string line = "SimConnect: User aircraft model: " + raw;

  // Camera pods and crew vessels are no aircraft; they are kept clear of like a regional jet.
  if (raw.find("camerapod") != std::string::npos || raw.find("Crew Vessel") != std::string::npos) {
    lf_setModelKnown(true);
    gv_userHalfWingSpan = lf_wingOf("E190");
    gf_logIndented(line);
    return;
  }

  double wing = raw.size() <= 4 ? lf_wingOf(raw) : maxHalfWingspan;
  gv_userHalfWingSpan = wing;
  bool known = wing != maxHalfWingspan;
  if (!known && gUserTitle.size() >= kTitlePrefixBytes) {
    const std::string_view head = std::string_view(gUserTitle).substr(0, kTitlePrefixBytes);
    for (const auto& [prefix, code] : kModelsByTitle) {
      if (head != prefix) continue;
      raw = code;
      line = "SimConnect: User aircraft model deduced from title: " + raw;
      wing = lf_wingOf(raw);
      if (wing != 0) {
        gv_userHalfWingSpan = wing;
        known = true;
      }
      break;
    }
  }
  if (!known) {
    lf_setModelKnown(false);
    setMessage("User aircraft wing span unknown, max is taken instead, please report in my Forum!", true);
  } else {
    lf_setModelKnown(true);
    line += fmt::format(", half wing span: {:.1F} meter", gv_userHalfWingSpan.load() * 1852.0);
  }
  line += fmt::format(", category: {}", categoryName(categoryOfModel(modelIndex(raw))));
  gf_logIndented(line);
}

}  // namespace

std::string gf_normaliseUserModel(std::string raw, std::string_view title) {
  for (const auto& [text, code] : kModelReplacements)
    if (raw == text) return std::string(code);

  // Liveries of MSFS 2020 name their model as "ATCCOM.AC_MODEL B738.0.text".
  if (const std::size_t p = raw.find(".0.text"); p != std::string::npos) {
    for (std::size_t n : {4u, 3u, 2u}) {
      if (p < n) continue;
      std::string candidate = raw.substr(p - n, n);
      if (lf_wingOf(candidate) != 0) return candidate;
    }
    return raw;
  }
  if (raw.starts_with("$$:") && raw.size() >= 5) return raw.substr(3);
  if (raw == "737") {
    for (const auto& [text, code] : kDg737Titles)
      if (title.find(text) != std::string_view::npos) return std::string(code);
  }
  return raw;
}

void lf_onUserTitle(std::string_view text) {
  if (text.empty()) {
    gf_log("! Title of your aircraft is empty?");
    return;
  }
  const std::string title(text.substr(0, kMaxTitleBytes));
  if (title == gUserTitle) return;
  gSimStatus.title.show(title);
  gf_repaint(ShownBand::Status);
  gUserTitle = title;
  gf_logIndented("SimConnect: User aircraft title: " + title);
}

void lf_onUserModel(std::string raw) {
  try {
    lf_readModel(std::move(raw));
  } catch (const UserErrorException&) {
    throw;
  } catch (...) {
    throw UserErrorException(73, "It looks like you have not selected an aircraft as user vehicle");
  }
}

void gf_clearUserModel() {
  gUserTitle.clear();
  gv_userHalfWingSpan = 0.0;
  gSimStatus.userModelKnown.store(false);
  gSimStatus.title.store("");
}

}  // namespace orv
