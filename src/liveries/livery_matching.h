#pragma once
// The matching ladder: the best installed title for an aircraft, from its very registration
// down to a generic paint of a similar model, as deep as MATCHING_DEPTH allows. Runs on the
// engine's thread, which alone reads the indexes then.
#include "liveries/livery_query.h"

namespace orv {

// For a live aircraft: sets ac.title and ac.reverser, or leaves the title empty. A match is
// counted in matchCounters and logged with its step; a miss logs nothing.
void gf_findLiveryLive(LiveryQuery& ac);
// For a static parked aircraft on a stand: a title already set stands; the stand's cargo
// counts for the private and generic steps. True when a title is set; a miss is logged.
bool gf_findLiveryParked(LiveryQuery& ac, const LiveryStand& stand);

}  // namespace orv
