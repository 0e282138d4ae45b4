#include "engine/identity_update.h"

#include <cctype>
#include <string>

#include "engine/ac_text.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/park_airport_site.h"
#include "engine/stand_contention.h"
#include "foundation/log.h"
#include "foundation/parameters.h"
#include "liveries/livery_indexes.h"
#include "liveries/match_memory.h"
#include "refdata/code_tables.h"
#include "refdata/registrations.h"

namespace orv {
namespace {

// A flight's new route: origin and destination both differ from the record's.
void lf_takeRoute(LiveAc& ac, const AcIdent& m) {
  if (!ac.to && m.to) ac.to = m.to;
  if (!ac.from && m.from) ac.from = m.from;
  if (!(ac.from && ac.to && m.from && m.to) || ac.from == m.from || ac.to == m.to) return;
  const bool fromPark = gParkAirportSite.chosen && ac.from == gParkAirportSite.iata;
  if (fromPark && m.to == ac.from) return;  // the way back to the park airport is the same flight
  ac.from = m.from;
  ac.to = m.to;
  if (ac.onGround && ac.flightState != kParking && ac.flightState != kParked) {
    gf_setFlightState(ac, kTaxi);
    ac.targetHeading = ac.heading;
  }
}

bool lf_airlineFitsCallsign(const AcCode& code, std::string_view cs) {
  const std::uint16_t a = gf_callsignAirline(cs);
  return a != 0 && (a == code.airline || a == code.airline2);
}

// True when the livery was invalidated.
bool lf_takeRegistration(LiveAc& ac, TrafficMsg& msg) {
  const std::string& reg = msg.ident.reg;
  bool invalidated = false;
  const bool fromTitle = ac.reg.empty() || (ac.reg == ac.cs && ac.reg != reg);
  if (!fromTitle) {
    if (reg != ac.reg) {
      const auto known = lookupRegistration(reg);
      if (known && !known->sameAs(ac.code) && lf_airlineFitsCallsign(*known, msg.ident.cs)) {
        ac.code = *known;
        if (ac.flightState == kParked && ac.sid != 0) gv_addRealStandOption(ac.sid, ac, 0);
        lf_invalidateLivery(ac);
        invalidated = true;
      }
    }
  } else {
    const auto it = regcodeToTitle.find(reg);
    const std::string_view title = it != regcodeToTitle.end() && it->second ? std::string_view(it->second->text) : "";
    if (!title.empty()) {
      if (title != ac.title) {
        if (const auto known = lookupRegistration(reg)) ac.code = *known;
        lf_invalidateLivery(ac);
        invalidated = true;
      }
    } else if (reg != ac.reg) {
      const auto known = lookupRegistration(reg);
      if (known && !known->sameAs(ac.code)) {
        ac.code = *known;
        lf_invalidateLivery(ac);
        invalidated = true;
      }
    }
  }
  ac.reg = std::move(msg.ident.reg);
  return invalidated;
}

}  // namespace

std::uint16_t gf_callsignAirline(std::string_view cs) {
  if (cs.size() < 4) return 0;
  for (int i = 0; i < 3; ++i)
    if (!std::isalpha(static_cast<unsigned char>(cs[static_cast<std::size_t>(i)]))) return 0;
  if (!std::isdigit(static_cast<unsigned char>(cs[3]))) return 0;
  std::string code(cs.substr(0, 3));
  for (char& c : code) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return airlineIndex(code);
}

bool lf_updateIdent(LiveAc& ac, TrafficMsg& msg) {
  if (ac.takingOff || ac.approach) return true;
  AcIdent& m = msg.ident;
  if (ac.simState == kBuffer) {
    if (m.from) ac.from = m.from;
    if (m.to) ac.to = m.to;
    if (!m.cs.empty()) ac.cs = std::move(m.cs);
    if (!m.reg.empty()) ac.reg = std::move(m.reg);
    return true;
  }
  if (ac.simState != kActive || ac.flightState == kPushingBack || ac.extendCount >= 1) return true;
  lf_takeRoute(ac, m);
  bool changed = false;
  if (!m.reg.empty()) changed = lf_takeRegistration(ac, msg);
  if (!m.cs.empty() && m.cs != ac.cs && m.cs != ac.reg) {
    if (m.cs.back() == '_') {
      if (lf_hasGhostOwner(m.cs)) return false;
    } else {
      lf_removeGhostOf(m.cs);
    }
    ac.cs = m.cs;
    ac.cs1 = std::move(m.cs);
    ac.cs2.clear();
    changed = true;
  }
  if (!changed || !GUID_CHANGES.value) return true;
  gf_log("          {} respawns", gf_acText(ac));
  liveryRespawn(ac);
  return false;
}

void lf_invalidateLivery(LiveAc& ac) {
  gLiveryCache.erase(ac.hexid);
  ac.title = {};
  gf_setFlightState(ac, kBirth);
}

void liveryRespawn(LiveAc& ac) {
  Sample copy;
  if (ac.flightState != kParked) {
    copy = ac.stream.front();
    copy.stopped = gf_samePosition({copy.lat, copy.lon}, {ac.lat, ac.lon}) ? 1 : 0;
    copy.lat = ac.lat;
    copy.lon = ac.lon;
    copy.alt = ac.alt;
    copy.roll.set(ac.bank);
  } else {
    ac.stream.resize(1);
    ac.stream.front().stopped = 1;
    ac.stream.front().track = ac.heading * kDegreesPerRadian;
    copy = ac.stream.front();
  }
  copy.tick = gv_tick + 1;
  ac.stream.push_front(copy);
  ac.simState = kLiveryRespawn;
  ac.respawnHeading.set(ac.heading);
  gf_queueObjectRemoval(ac, "{} removing act {} with objectid=0 ?", "liveryRespawn");
}

}  // namespace orv
