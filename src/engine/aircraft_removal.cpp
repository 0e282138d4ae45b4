#include "engine/aircraft_removal.h"

#include <algorithm>

#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "foundation/log.h"

namespace orv {
namespace {

// Takes the request of this callsign out of a queue; false when none waits there.
bool lf_cancelRequest(std::deque<AddRequest>& queue, const std::string& cs) {
  const auto it = std::find_if(queue.begin(), queue.end(), [&](const AddRequest& r) { return r.callsign == cs; });
  if (it == queue.end()) return false;
  queue.erase(it);
  return true;
}

}  // namespace

void removeAircraftFromSim(AcRecord& ac) {
  if (ac.simState == kBuffer) {
    ac.erase = 1;
    return;
  }
  if (ac.removeWhenCreated) return;
  if (ac.simState == kAdding2Sim) {
    if (lf_cancelRequest(gLiveAddQueue, ac.cs) || lf_cancelRequest(gParkedAddQueue, ac.cs))
      ac.cancelled = 1;
    else
      ac.removeWhenCreated = 1;  // the simulator is creating it: it goes once it exists
    return;
  }
  if (ac.hexid > 10000) lf_clearLiveAtStand(ac.sid);
  ac.simState = kRemovingFromSim;
  gf_queueObjectRemoval(ac, "{} removing act {}, with objectid=0 ?", "removeAircraftFromSim");
}

void gf_queueObjectRemoval(AcRecord& ac, fmt::format_string<std::string_view, const std::string&> noObject,
                           std::string_view label) {
  gv_stopFollowing(ac.objectid);
  if (ac.objectid == 0)
    gf_logError(std::string_view(fmt::vformat(noObject, fmt::make_format_args(label, ac.cs))));
  else
    gRemoveQueue.push_back(ac.objectid);
}

}  // namespace orv
