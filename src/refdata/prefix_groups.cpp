#include "refdata/prefix_groups.h"

#include <map>
#include <utility>

#include "foundation/random.h"

namespace orv {

std::vector<std::vector<std::string>> prefixGroupLists;
std::unordered_map<std::string, std::vector<std::string>> prefixGroups;

void lf_buildPrefixGroups() {
  prefixGroups.clear();
  std::map<std::string, std::pair<std::string, std::vector<std::string>>> entries;  // by joined text
  for (const auto& group : prefixGroupLists) {
    for (const auto& member : group) {
      std::string text = member;
      std::vector<std::string> others;
      for (const auto& other : group) {
        if (other == member) continue;
        others.push_back(other);
        text += ',';
        text += other;
      }
      if (!others.empty()) entries.emplace(std::move(text), std::pair{member, std::move(others)});
    }
  }
  for (auto& [text, entry] : entries) prefixGroups.try_emplace(entry.first, std::move(entry.second));
}

std::vector<std::string> prefixGroup(std::string_view prefix) {
  auto it = prefixGroups.find(std::string(prefix));
  if (it == prefixGroups.end()) return {};
  std::vector<std::string> others = it->second;
  gf_shuffle(others);
  return others;
}

void lf_clearPrefixGroups() {
  prefixGroupLists.clear();
  prefixGroups.clear();
}

}  // namespace orv
