#include "liveries/title_choice.h"

#include <string>
#include <vector>

#include "foundation/random.h"
#include "refdata/prefix_groups.h"

namespace orv {

namespace {
bool isSpecial(const CatalogueTitle* title) { return specialTitles.contains(title->text); }

const CatalogueTitle* randomElement(const TitleList& titles) { return titles[gf_randomIndex(titles.size())]; }
}  // namespace

void gf_pickTitle(LiveryQuery& ac, const TitleList& titles) {
  if (titles.empty()) return;
  const CatalogueTitle* pick = nullptr;
  for (int attempt = 0; attempt < 5; ++attempt) {
    pick = randomElement(titles);
    if (specialTitles.empty() || !isSpecial(pick)) {
      ac.title = pick->text;
      return;
    }
  }
  TitleList plain;
  for (const CatalogueTitle* title : titles)
    if (!isSpecial(title)) plain.push_back(title);
  ac.title = plain.empty() ? pick->text : randomElement(plain)->text;
}

std::string_view gf_regPrefix(std::string_view reg) {
  if (reg.empty()) return {};
  const std::size_t dash = reg.find('-');
  if (dash == std::string_view::npos || dash == 0) return reg.substr(0, 1);
  return reg.substr(0, dash + 1);
}

TitleList gf_titlesWithPrefix(const TitleList& titles, std::string_view prefix) {
  TitleList kept;
  for (const CatalogueTitle* title : titles)
    if (!title->regcode.empty() && title->regcode.starts_with(prefix)) kept.push_back(title);
  return kept;
}

bool gf_pickByPrefix(LiveryQuery& ac, const TitleList& titles) {
  const std::string_view prefix = gf_regPrefix(ac.reg);
  if (prefix.empty()) return false;
  gf_pickTitle(ac, gf_titlesWithPrefix(titles, prefix));
  if (!ac.title.empty()) return true;
  for (const std::string& other : prefixGroup(prefix)) {
    gf_pickTitle(ac, gf_titlesWithPrefix(titles, other));
    if (!ac.title.empty()) return true;
  }
  return false;
}

}  // namespace orv
