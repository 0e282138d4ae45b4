#pragma once
// Registration prefixes that may stand in for each other ("D-", "OE-", "HB-"): an aircraft
// without a livery of its own country may take one of a neighbouring register.
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orv {

// Each group sorted; in file order.
extern std::vector<std::vector<std::string>> prefixGroupLists;
// A prefix to the other members of its group, in group order.
extern std::unordered_map<std::string, std::vector<std::string>> prefixGroups;

// Builds prefixGroups from prefixGroupLists. A prefix in two groups keeps the entry whose
// text "p,other,other..." sorts first.
void lf_buildPrefixGroups();

// The other prefixes of the group, shuffled when RANDOM is on; empty when there are none.
std::vector<std::string> prefixGroup(std::string_view prefix);

void lf_clearPrefixGroups();

}  // namespace orv
