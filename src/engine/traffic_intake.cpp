#include "engine/traffic_intake.h"

#include "engine/engine_tables.h"
#include "engine/new_aircraft.h"
#include "engine/traffic_queue.h"
#include "refdata/model_categories.h"
#include "refdata/registrations.h"
#include "refdata/wingspans.h"

namespace orv {
namespace {

// One aircraft reported under two addresses: same callsign, same type.
bool lf_reportedUnderAnotherHexid(const TrafficMsg& msg) {
  if (msg.ident.cs.empty()) return false;
  for (const LiveAc& ac : gLiveAc)
    if (ac.cs == msg.ident.cs && ac.code.acType == msg.ident.code.acType) return true;
  return false;
}

// The gates of spawning (valid model, the classes the user wants, the height near the park
// airport) come with spawning; here a known registration gives its operator and type.
void lf_newAircraft(TrafficMsg&& msg) {
  if (auto code = lookupRegistration(msg.ident.reg)) msg.ident.code = *code;
  const std::uint16_t type = msg.ident.code.acType;
  gf_addLiveAc(gf_makeLiveAc(std::move(msg), categoryOfModel(type), halfWingspan(type)));
}

// A new sample of a known aircraft. The filters and planning of the stream come with spawning.
void decodeExisting(LiveAc& ac, const TrafficMsg& msg) {
  ac.lastTimestamp = msg.timestamp;
  ac.stream.push_back(msg.sample);
}

}  // namespace

void lf_decodeMsg(TrafficMsg&& msg) {
  const int i = gf_findLiveAc(msg.hexid);
  if (i < 0) {
    if (!lf_reportedUnderAnotherHexid(msg)) lf_newAircraft(std::move(msg));
    return;
  }
  LiveAc& ac = gLiveAc[static_cast<std::size_t>(i)];
  if (ac.simState == kLiveryRespawn || ac.simState == kRemovingFromSim) return;
  decodeExisting(ac, msg);
}

void lf_takeTrafficMessages() {
  TrafficMsg taken[2];
  const std::size_t n = gTrafficQueue.take(2, taken);
  for (std::size_t i = 0; i < n; ++i) lf_decodeMsg(std::move(taken[i]));
}

}  // namespace orv
