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

  // An airline can only have an entry for a model that one of its own models stands in for:
  // walking from its models keeps the work to what it has, not to all models of the dbase.
  std::unordered_map<uint16_t, std::vector<uint16_t>> standsInFor;
  for (const auto& [model, similar] : similarAvailable)
    for (uint16_t candidate : similar) standsInFor[candidate].push_back(model);
  for (const auto& [airline, models] : liveries.airlineModels) {
    std::unordered_map<uint16_t, std::vector<uint16_t>> entries;
    for (uint16_t own : models) {
      const auto forModels = standsInFor.find(own);
      if (forModels == standsInFor.end()) continue;
      for (uint16_t model : forModels->second) {
        if (models.contains(model) || entries.contains(model)) continue;
        std::vector<uint16_t> kept;
        for (uint16_t candidate : similarAvailable.at(model))
          if (models.contains(candidate)) kept.push_back(candidate);
        entries.emplace(model, std::move(kept));
      }
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
