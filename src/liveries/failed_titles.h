#pragma once
// Liveries that the simulator refused to create. The simulator link writes them (one refusal is
// enough); the matching never hands such a title out again in this process.
#include <set>
#include <string>

namespace orv {

// The refused titles, and "<model> <airline>" of each; reported with the matching summary.
inline std::set<std::string, std::less<>> gFailedTitles;
inline std::set<std::string, std::less<>> gFailedTitleInfo;

}  // namespace orv
