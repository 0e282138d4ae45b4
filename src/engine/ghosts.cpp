// Ghosts: the feed can report one aircraft under a second identity whose callsign ends in `_`.
// A ghost is shown only while its owner isn't; once the owner comes, the ghost goes for good.
#include <string>

#include "airportdata/stands.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "foundation/log.h"

namespace orv {

void lf_removeGhostOf(std::string_view cs) {
  if (cs.empty()) return;
  const std::string ghost = std::string(cs) + '_';
  for (LiveAc& g : gLiveAc) {
    if (g.cs != ghost || g.simState == kRemovingFromSim) continue;
    if (g.flightState == kParked)
      gf_log("{:8}: {:8} is a ghost and will be removed, continue with {}", lf_standName(g.sid), g.cs, cs);
    else
      gf_log("          {:8} is a ghost and will be removed, continue with {}", g.cs, cs);
    gGhostList.push_back(g.cs);
    removeAircraftFromSim(g);
    return;
  }
}

bool lf_hasGhostOwner(std::string_view cs) {
  if (cs.size() < 2 || cs.back() != '_') return false;
  const std::string_view owner = cs.substr(0, cs.size() - 1);
  for (const LiveAc& o : gLiveAc)
    if (o.cs == owner && o.simState != kRemovingFromSim) return true;
  return false;
}

}  // namespace orv
