#pragma once
// Models that look alike: the groups of the dbase, and the lists built from them once the
// installed liveries are known, for an aircraft whose own model has no livery.
#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace orv {

// Each group sorted; in file order.
extern std::vector<std::vector<std::string>> similarGroups;
// Model index to the similar models that have at least one livery.
extern std::unordered_map<uint16_t, std::vector<uint16_t>> similarAvailable;
// Airline index to: model index the airline has no livery of, to similar models it does have.
extern std::unordered_map<uint16_t, std::unordered_map<uint16_t, std::vector<uint16_t>>> airlineSimilar;

// What the livery catalogue holds, reduced to what the lists need.
struct LiveryPresence {
  std::unordered_set<uint16_t> modelsWithLivery;                              // pax or cargo titles
  std::unordered_map<uint16_t, std::unordered_set<uint16_t>> airlineModels;  // airline to its models
};

// Rebuilds similarAvailable and airlineSimilar; called when the livery indexes stand.
void buildSimilarLists(const LiveryPresence& liveries);

void lf_clearSimilarModels();

}  // namespace orv
