#include "refdata/similar_models.h"

#include <map>
#include <utility>

#include "foundation/log.h"
#include "refdata/code_tables.h"

namespace orv {

std::vector<std::vector<std::string>> similarGroups;
std::unordered_map<uint16_t, std::vector<uint16_t>> similarAvailable;
std::unordered_map<uint16_t, std::unordered_map<uint16_t, std::vector<uint16_t>>> airlineSimilar;

void buildSimilarLists(const LiveryPresence& liveries) {
  similarAvailable.clear();
  airlineSimilar.clear();

  // Keyed by "m,other,other..." so that a model in two groups takes the list whose text sorts first.
  std::map<std::string, std::pair<uint16_t, std::vector<uint16_t>>> definitions;
  for (const auto& group : similarGroups) {
    for (const auto& member : group) {
      std::string text = member;
      std::vector<uint16_t> others;
      for (const auto& other : group) {
        if (other == member) continue;
        const uint16_t index = modelIndex(other);
        if (!liveries.modelsWithLivery.contains(index)) continue;
        others.push_back(index);
        text += ',';
        text += other;
      }
      if (!others.empty()) definitions.emplace(std::move(text), std::pair{modelIndex(member), std::move(others)});
    }
  }
  for (auto& [text, definition] : definitions) similarAvailable.try_emplace(definition.first, definition.second);

  for (const auto& [airline, models] : liveries.airlineModels) {
    std::unordered_map<uint16_t, std::vector<uint16_t>> entries;
    for (const auto& [model, similar] : similarAvailable) {
      if (models.contains(model)) continue;
      std::vector<uint16_t> own;
      for (uint16_t candidate : similar)
        if (models.contains(candidate)) own.push_back(candidate);
      if (!own.empty()) entries.emplace(model, std::move(own));
    }
    if (!entries.empty()) airlineSimilar.emplace(airline, std::move(entries));
  }
  gf_log("{:5} similar model definitions", similarAvailable.size());
}

void lf_clearSimilarModels() {
  similarGroups.clear();
  similarAvailable.clear();
  airlineSimilar.clear();
}

}  // namespace orv
