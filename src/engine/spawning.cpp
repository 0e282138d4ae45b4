#include "engine/spawning.h"

#include <chrono>

#include "engine/ac_text.h"
#include "engine/air_leg.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/identity_update.h"
#include "engine/position_stream.h"
#include "engine/stand_contention.h"
#include "engine/user_snapshot.h"
#include "foundation/day_and_slot.h"
#include "foundation/log.h"
#include "foundation/parameters.h"
#include "liveries/livery_matching.h"
#include "liveries/match_memory.h"
#include "refdata/code_tables.h"
#include "refdata/registrations.h"

namespace orv {
namespace {

// 150 m around the user on the ground.
constexpr double kUserGroundClearNm = 0.08099352051835854;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }
LatLon userPos() { return {gUserSnapshot.lat, gUserSnapshot.lon}; }

void lf_dropHead(LiveAc& ac) { ac.stream.pop_front(); }

bool lf_mixedAirAndGround(const LiveAc& ac) {
  bool air = false, ground = false;
  for (const Sample& s : ac.stream) (s.airborne ? air : ground) = true;
  return air && ground;
}

std::size_t lf_liveCount() {
  std::size_t active = 0;
  for (const LiveAc& ac : gLiveAc) active += ac.simState == kActive;
  return gAddStack.size() + active + gLiveAddQueue.size();
}

bool lf_validCallsign(std::string_view cs) { return !cs.empty() && cs.size() <= 8 && cs != "@@@@@@@@"; }

bool lf_endsInGhostMark(std::string_view cs) { return !cs.empty() && cs.back() == '_'; }

bool lf_inGhostList(std::string_view cs) {
  for (const std::string& g : gGhostList)
    if (g == cs) return true;
  return false;
}

// The code of the aircraft as far as the dbase and the callsign tell it.
void lf_completeCode(LiveAc& ac) {
  if (auto code = lookupRegistration(ac.reg)) ac.code = *code;
  if (ac.code.airline != 0) return;
  const std::uint16_t airline = gf_callsignAirline(ac.cs);
  ac.code.airline = airline != 0 ? airline : airlineIndex("PVT");
}

// The title from the memory of this run or from the matching; false when there is none.
bool lf_chooseTitle(LiveAc& ac) {
  if (!ac.title.empty()) return true;
  ac.title = gf_rememberedTitle(ac.hexid);
  if (!ac.title.empty()) {
    ac.reverser = ac.title.find("FSLTL_") != std::string_view::npos;
    return true;
  }
  const std::string text = gf_acText(ac);
  LiveryQuery q;
  q.code = ac.code;
  q.reg = ac.reg;
  q.cs = ac.cs;
  q.acClass = ac.acClass;
  q.description = text;
  gf_findLiveryLive(q);
  ac.title = q.title;
  ac.reverser = q.reverser;
  if (ac.title.empty()) {
    if (!ac.reg.empty()) gNoMatch.insert(gf_noMatchText(ac.code, ac.reg));
    return false;
  }
  gLiveryCache[ac.hexid] = ac.title;
  return true;
}


// Spawned on the ground: parked at a stand, or taxiing; false when it stands nowhere.
bool lf_placeOnGround(LiveAc& ac) {
  auto& s = ac.stream;
  if (const auto stand = lf_standAtSpawn(ac)) {
    ac.standLat = stand->lat;
    ac.standLon = stand->lon;
    ac.standHeading = stand->heading;
    ac.sid = stand->sid;
    ac.standCargo = stand->cargo;
    gf_setFlightState(ac, kParked);
    ac.parkedSlot = gv_dayAndSlot.load();
    ac.parkedTime = lf_systemTicks();
    ac.standDistMax = 0;
    ac.driftCount = 0;
    gv_learnStandCargo(ac);
    s.resize(1);
    s[0].lat = stand->lat;
    s[0].lon = stand->lon;
    s[0].track = stand->heading * kDegreesPerRadian;
    gv_addRealStandOption(ac.sid, ac, 1);
    gv_maxParkCheck(1);
    return true;
  }
  if (s[1].stopped) {
    lf_dropHead(ac);  // standing somewhere without a stand: not shown
    return false;
  }
  gf_setFlightState(ac, kTaxi);
  return true;
}

}  // namespace

bool lf_dropFarthest(double bound) {
  LiveAc* candidate = nullptr;
  const LatLon user = userPos();
  const bool plainFarthest = bound < 0;
  for (LiveAc& ac : gLiveAc) {
    if (ac.simState != kActive) continue;
    const double d = gf_distance(user, {ac.lat, ac.lon});
    if (plainFarthest ? (candidate == nullptr || d > bound) : d > bound + 0.1) {
      candidate = &ac;
      bound = d;
    }
  }
  if (candidate == nullptr) return true;
  removeAircraftFromSim(*candidate);
  return false;
}

bool lf_holdForUser(LiveAc& ac) {
  const Sample& s0 = ac.stream.front();
  if (gv_userOnGround.load()) {
    if (COLLISION_USER_GND.value && !s0.airborne && gf_distance(pos(s0), userPos()) < kUserGroundClearNm) {
      lf_dropHead(ac);
      return true;
    }
    return false;
  }
  if (COLLISION_USER_AIR.value && lf_insideUserAirEnvelope(ac, pos(s0))) {
    removeAircraftFromSim(ac);
    return true;
  }
  return false;
}

void lf_bufferStep(LiveAc& ac) {
  auto& s = ac.stream;
  if (s.empty()) {
    ac.erase = 1;
    return;
  }
  if (gv_tick < s[0].tick) return;
  if (s.size() == 1) {
    lf_dropHead(ac);  // a single report within 30 seconds isn't shown
    ac.erase = 1;
    return;
  }
  // The simulator tells of new objects only within the range: one created at its edge would
  // never be confirmed and hang where it was created.
  if (gf_userPositionKnown(gUserSnapshot) &&
      gf_distance(userPos(), pos(s[0])) >= gv_rangeNm.load(std::memory_order_relaxed) - kRangeMarginNm) {
    lf_dropHead(ac);
    return;
  }
  if (lf_endsInGhostMark(ac.cs) && lf_inGhostList(ac.cs)) {
    ac.erase = 1;
    return;
  }
  if (lf_mixedAirAndGround(ac)) {
    lf_dropHead(ac);  // nothing is spawned in the middle of a take-off or landing
    return;
  }
  if (lf_holdForUser(ac)) return;
  if (gLiveAddQueue.size() >= 11 && ac.flightState == kBirth) {
    lf_dropHead(ac);
    return;
  }
  const auto maxLive = static_cast<std::size_t>(MAX_LIVE_SEL.value);
  if (maxLive == 0) {
    ac.erase = 1;
    return;
  }
  if (lf_liveCount() >= maxLive && lf_dropFarthest(gf_distance(userPos(), pos(s[0])))) {
    ac.erase = 1;
    return;
  }
  if (ac.cs == BLOCK_CALLSIGN.value) {
    ac.erase = 1;
    return;
  }
  if (ac.routeLooked == 0) lf_completeCode(ac);
  if (!lf_validCallsign(ac.cs)) ac.cs = ac.reg;
  if (!lf_validCallsign(ac.cs)) {
    ac.erase = 1;
    return;
  }
  if (gNoMatch.contains(gf_noMatchText(ac.code, ac.reg))) {
    ac.erase = 1;
    return;
  }
  if (lf_endsInGhostMark(ac.cs) && lf_hasGhostOwner(ac.cs)) {
    ac.erase = 1;
    return;
  }
  spawnLiveAc(ac);
}

void spawnLiveAc(LiveAc& ac) {
  auto& s = ac.stream;
  if (s.size() < 2) {
    gf_logError("{} sz:{}", "spawnLiveAc", s.size());
    return;
  }
  if (s[1].stopped) {
    s[0].stopped = 1;
    s[0].gs = s[1].gs = 0;
    if (s.size() > 2 && s[2].stopped) s[2].gs = 0;
  } else {
    s[0].stopped = 0;
  }
  if (ac.flightState == kBirth) {
    if (!lf_chooseTitle(ac)) {
      ac.erase = 1;
      return;
    }
    if (s[0].airborne) {
      gf_setFlightState(ac, kFlying);
    } else if (!lf_placeOnGround(ac)) {
      return;
    }
  }
  if (ac.erase) return;
  lf_initPose(ac);
  ac.simState = kAdding2Sim;
  gAddStack.push_back(ac.hexid);
  if (!lf_endsInGhostMark(ac.cs)) lf_removeGhostOf(ac.cs);
}

void lf_initPose(LiveAc& ac) {
  const auto& s = ac.stream;
  gRouteQueue.push_back(ac.hexid);
  ac.lat = s[0].lat;
  ac.lon = s[0].lon;
  ac.alt = s[0].alt;
  ac.outTas = s[0].tas;
  ac.outVs = s[0].vs;
  ac.pitch = s[0].airborne ? gf_targetPitch(s[0].vs) : 0.6 / kDegreesPerRadian;
  ac.bank = s[0].roll ? s[0].roll.value : 0.0;
  if (ac.respawnHeading) {
    ac.heading = ac.respawnHeading.value;
    ac.respawnHeading.reset();
  } else if (ac.flightState == kParked) {
    ac.heading = ac.standHeading;
  } else if (s.size() < 2 || s[1].stopped) {
    ac.heading = s[0].track / kDegreesPerRadian;
  } else {
    ac.heading = gf_bearing(pos(s[0]), pos(s[1]));
  }
  if (ac.heading > 6.283185307178586) ac.heading = 0;
  ac.stepHeading = 0;
}

std::int64_t lf_systemTicks() {
  // 100 ns units, as the parked time is kept.
  return std::chrono::duration_cast<std::chrono::duration<std::int64_t, std::ratio<1, 10000000>>>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

}  // namespace orv
