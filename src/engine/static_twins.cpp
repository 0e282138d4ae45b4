// An aircraft that is both live and static: the parking calculation placed a static aircraft for
// a flight that the feed now shows alive. The static one goes.
#include <string>

#include "engine/aircraft_removal.h"
#include "engine/engine_tables.h"
#include "engine/stand_contention.h"

namespace orv {

void lf_sweepStaticTwins() {
  if (gParkedAc.empty()) return;
  for (const LiveAc& ac : gLiveAc) {
    if (ac.simState != kActive || !ac.onGround) continue;
    for (AcRecord& p : gParkedAc) {
      if (p.simState != kActive) continue;
      const bool sameReg = !ac.reg.empty() && p.reg == ac.reg;
      // A static aircraft named after a live flight carries its callsign with a `*`.
      const bool starred = !p.cs.empty() && p.cs.back() == '*' && p.cs == ac.cs + '*';
      if (sameReg || starred) {
        removeAircraftFromSim(p);
        return;
      }
    }
  }
}

void lf_dropStaticTwin(LiveAc& ac) {
  if (ac.cs.empty()) return;
  const std::string_view plain =
      ac.cs.back() == '_' ? std::string_view(ac.cs).substr(0, ac.cs.size() - 1) : std::string_view(ac.cs);
  // An empty name matches nothing.
  const auto named = [&](const std::string& c) { return !c.empty() && (c == ac.cs || c == ac.cs2 || c == plain); };
  for (AcRecord& p : gParkedAc) {
    if (p.simState != kActive) continue;
    if ((!p.reg.empty() && p.reg == ac.reg) || named(p.cs1) || named(p.cs2)) {
      removeAircraftFromSim(p);
      return;
    }
  }
}

}  // namespace orv
