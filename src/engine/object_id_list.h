#pragma once
// output/info/ObjectIdList.txt: which simulator object is which live aircraft, for users
// who look objects up in the simulator's developer tools.
#include <filesystem>

namespace orv {

inline const std::filesystem::path kObjectIdListPath = std::filesystem::path("output") / "info" / "ObjectIdList.txt";

// Writes the list anew from the active live aircraft, in table order.
void gf_writeObjectIdList();

}  // namespace orv
