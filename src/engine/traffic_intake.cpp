#include "engine/traffic_intake.h"

#include <algorithm>
#include <cmath>

#include "engine/engine_tables.h"
#include "engine/identity_update.h"
#include "engine/new_aircraft.h"
#include "engine/park_airport_site.h"
#include "engine/position_stream.h"
#include "engine/traffic_queue.h"
#include "foundation/parameters.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/registrations.h"
#include "refdata/valid_codes.h"
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

// Too soon, a jump in speed that is noise, or a sample that a straight flight or a slow
// ground movement doesn't need yet (one every 450 m in the air, every 20 m on the ground).
bool lf_notWanted(const LiveAc& ac, const TrafficMsg& msg) {
  const Sample& last = ac.stream.back();
  const Sample& s = msg.sample;
  const double dt = msg.timestamp - ac.lastTimestamp;
  if (dt <= 1.0) return true;
  if ((last.gs > 5 && s.gs >= 10 * last.gs) || (s.gs > 5 && last.gs >= 10 * s.gs)) return true;
  if ((last.gs <= 5 && s.gs >= 80) || (s.gs <= 5 && last.gs >= 80)) return true;
  if (ac.extendCount >= 1) return false;
  const double dTrack = std::fabs(s.track - last.track);
  if (s.airborne && s.gs > 120 && dTrack <= 1 && dt <= 0.2429805615550756 / (s.gs / 3600)) return true;
  if (!s.airborne && s.gs <= 30 && dTrack <= 2) {
    const double wait = s.gs == 0 ? 15.0 : std::min(0.010799136069114472 / (s.gs / 3600), 15.0);
    if (dt <= wait) return true;
  }
  return false;
}

}  // namespace

bool lf_classWanted(std::int32_t acClass) {
  switch (acClass) {
    case kLight: return LIGHT_AIRCRAFT.value;
    case kHighPerf: return HIGH_PERF_AIRCRAFT.value;
    case kRotorcraft: return HELICOPTERS.value;
    default: return true;
  }
}

bool lf_atParkAirportHeight(double alt) {
  const double e = gParkAirportSite.chosen ? gParkAirportSite.elevationFt : -1000.0;
  return alt > 0 && alt < 10000 && std::fabs(alt - e) <= 108;
}

void lf_newAircraft(TrafficMsg&& msg) {
  if (auto code = lookupRegistration(msg.ident.reg)) msg.ident.code = *code;
  const std::uint16_t type = msg.ident.code.acType;
  if (!isValidModel(modelCode(type))) return;
  const int acClass = categoryOfModel(type);
  if (!lf_classWanted(acClass)) return;
  if (lf_atParkAirportHeight(msg.sample.alt)) return;
  gf_addLiveAc(gf_makeLiveAc(std::move(msg), acClass, halfWingspan(type)));
}

void lf_decodeMsg(TrafficMsg&& msg) {
  const int i = gf_findLiveAc(msg.hexid);
  if (i < 0) {
    if (!lf_reportedUnderAnotherHexid(msg)) lf_newAircraft(std::move(msg));
    return;
  }
  LiveAc& ac = gLiveAc[static_cast<std::size_t>(i)];
  if (ac.simState == kLiveryRespawn || ac.simState == kRemovingFromSim) return;
  if (!ac.stream.empty() && lf_notWanted(ac, msg)) return;
  if (ac.simState == kBuffer && lf_atParkAirportHeight(msg.sample.alt)) return;
  if (!lf_updateIdent(ac, msg)) return;
  ac.lastTimestamp = msg.timestamp;
  decodeExisting(ac, msg.sample);
}

void lf_takeTrafficMessages() {
  TrafficMsg taken[2];
  const std::size_t n = gTrafficQueue.take(2, taken);
  for (std::size_t i = 0; i < n; ++i) lf_decodeMsg(std::move(taken[i]));
}

}  // namespace orv
