// The second callsign of a live flight, from the learned stand options of the park airport:
// an airline's arrival and departure often fly under two numbers.
#include <algorithm>
#include <string>

#include "airportdata/stands.h"
#include "engine/stand_contention.h"

namespace orv {

void lf_lookUpFlight(WeekSlot slot, LiveAc& ac) {
  const int reach = ac.acClass == kHeavy ? 14 : 10;
  const int hh = static_cast<int>(gf_halfHourOf(slot));
  const int from = std::max(0, hh - reach), to = std::min(47, hh + reach);
  std::uint64_t span = 0;
  for (int h = from; h <= to; ++h) span |= std::uint64_t{1} << h;
  const std::string_view plain =
      !ac.cs.empty() && ac.cs.back() == '_' ? std::string_view(ac.cs).substr(0, ac.cs.size() - 1) : ac.cs;
  if (plain.empty()) return;
  const std::uint32_t day = gf_weekdayOf(slot);
  for (const Stand& stand : gStands) {
    for (const StandOpt& o : stand.opts) {
      if (o.number == 0 || o.day != day || o.acCode.airline != ac.code.airline || o.cs2.empty() ||
          (o.hours & span) == 0)
        continue;
      if (o.cs == ac.cs || o.cs2 == ac.cs || o.cs == plain || o.cs2 == plain) {
        ac.cs1 = o.cs;
        ac.cs2 = o.cs2;
        return;
      }
    }
  }
}

}  // namespace orv
