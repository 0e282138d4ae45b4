#include "airportdata/stands.h"

#include <algorithm>

namespace orv {

std::vector<Stand> gStands;

Stand* findStand(std::vector<Stand>& stands, std::uint32_t number) {
  const auto it = std::lower_bound(stands.begin(), stands.end(), number,
                                   [](const Stand& s, std::uint32_t n) { return s.number < n; });
  return it != stands.end() && it->number == number ? &*it : nullptr;
}

std::string lf_standName(std::int32_t sid) {
  if (sid > 0)
    if (const Stand* stand = findStand(gStands, static_cast<std::uint32_t>(sid))) return stand->id;
  return std::to_string(sid);
}

}  // namespace orv
