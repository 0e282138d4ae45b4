// Who keeps a stand: the occupant against a newcomer that the feed reports there, live
// aircraft on touching stands, and static aircraft, which always give way to live ones.
#include <algorithm>
#include <string>

#include "airportdata/stands.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "foundation/log.h"

namespace orv {
namespace {

LatLon standPos(const Stand& s) { return {s.latitude, s.longitude}; }

bool endsInGhostMark(std::string_view cs) { return !cs.empty() && cs.back() == '_'; }
std::string_view withoutLast(std::string_view cs) { return cs.empty() ? cs : cs.substr(0, cs.size() - 1); }

LiveAc* firstLiveAt(std::int32_t sid) {
  for (LiveAc& o : gLiveAc)
    if (o.sid == sid) return &o;
  return nullptr;
}

// Two aircraft on stands n and `stand` touch when their half wing spans, with a tenth to spare,
// reach across the distance of the stands.
bool touching(const AcRecord& a, const AcRecord& b, const Stand& n, const Stand& stand) {
  return (a.hwsp + b.hwsp) * 1.1 >= gf_distance(standPos(n), standPos(stand));
}

bool standing(const LiveAc& o) {
  return (o.flightState == kPushingBack || o.flightState == kParked) && o.simState == kActive;
}

bool takeParkedRequest(const std::string& cs) {
  const auto it = std::find_if(gParkedAddQueue.begin(), gParkedAddQueue.end(),
                               [&](const AddRequest& r) { return r.callsign == cs; });
  if (it == gParkedAddQueue.end()) return false;
  gParkedAddQueue.erase(it);
  return true;
}

}  // namespace

bool lf_standFree(std::int32_t sid, std::string_view cs) {
  LiveAc* o = firstLiveAt(sid);
  if (o == nullptr) return true;
  const bool holds = o->flightState == kPushingBack || o->flightState == kPushedBack || o->flightState == kParked;
  if (!holds || o->simState != kActive) return true;
  const std::string id = lf_standName(sid);
  if (o->cs == cs) {
    gf_log("{:8}: {:8} ac with same callsign {} wants it, remove existing ... ", id, o->cs, cs);
    removeAircraftFromSim(*o);
    return true;
  }
  // One callsign one character longer than the other is its ghost.
  if (withoutLast(cs) == o->cs) return false;
  if (cs == withoutLast(o->cs) || (endsInGhostMark(o->cs) && !endsInGhostMark(cs))) {
    gf_log("{:8}: {:8} ghost, replace by {}", id, o->cs, cs);
    removeAircraftFromSim(*o);
    return true;
  }
  if (!endsInGhostMark(o->cs) && endsInGhostMark(cs)) return false;
  // The feed has shown the occupant at the stand since it parked.
  if (o->standConfirmed) return false;
  gf_log("{:8}: {:8} removed because another live {} wants the stand ...", id, o->cs, cs);
  removeAircraftFromSim(*o);
  return true;
}

bool lf_adjacentFree(std::uint32_t n, const AcRecord& ac, const Stand& stand) {
  if (n == 0) return true;
  const Stand* other = findStand(gStands, n);
  if (other == nullptr) return true;
  for (const LiveAc& o : gLiveAc) {
    if (o.sid != static_cast<std::int32_t>(n) || !standing(o) || o.cs == ac.cs) continue;
    if (touching(o, ac, *other, stand)) return false;
  }
  return true;
}

void lf_clearAdjacent(std::uint32_t n, const AcRecord& ac, const Stand& stand) {
  LiveAc* o = firstLiveAt(static_cast<std::int32_t>(n));
  if (o == nullptr || !standing(*o)) return;
  const Stand* other = findStand(gStands, n);
  if (other == nullptr || !touching(*o, ac, *other, stand)) return;
  gf_log("{:8}: {:8} removed by parking {} at adjacent and possibly colliding stand {}", other->id, o->cs, ac.cs,
         stand.id);
  removeAircraftFromSim(*o);
}

void lf_staticsMakeWay(const AcRecord& ac, const Stand& stand) {
  for (AcRecord& p : gParkedAc) {
    if (p.sid != static_cast<std::int32_t>(stand.number)) continue;
    const char* same =
        (!p.cs1.empty() && p.cs1 == ac.cs) || (!p.reg.empty() && p.reg == ac.reg) ? " the same live version" : "";
    if (p.simState == kActive) {
      gf_log("{:8}: {:8} {} makes way for{} {} {}", stand.id, p.cs, p.reg, same, ac.cs, ac.reg);
      removeAircraftFromSim(p);
    } else if (p.simState == kAdding2Sim) {
      if (takeParkedRequest(p.cs)) {
        p.cancelled = 1;
        gf_log("queued {:8}: {:8} {} makes way for{} {} {}", stand.id, p.cs, p.reg, same, ac.cs, ac.reg);
      } else {
        p.removeWhenCreated = 1;  // the simulator is creating it: it goes once it exists
      }
    }
    break;
  }
  std::erase_if(gParkedAc, [](const AcRecord& p) { return p.cancelled != 0; });
  for (std::uint32_t n : stand.adjacent) {
    const Stand* other = findStand(gStands, n);
    if (other == nullptr) continue;
    for (AcRecord& p : gParkedAc) {
      if (p.simState != kActive || p.sid != static_cast<std::int32_t>(n) || !touching(p, ac, *other, stand)) continue;
      gf_log("{:8}: {:8} makes way for {} parking at excluded stand {}", other->id, p.cs, ac.cs, stand.id);
      removeAircraftFromSim(p);
      break;
    }
  }
}

void lf_clearLiveAtStand(std::int32_t sid) {
  if (sid <= 0) return;
  if (Stand* stand = findStand(gStands, static_cast<std::uint32_t>(sid))) stand->liveAtStand = false;
}

void lf_onLiveParksAtStand(LiveAc& ac) {
  for (AcRecord& p : gParkedAc) {
    if (p.sid != ac.sid || p.simState != kActive) continue;
    gf_log("{:8}: {:8} parks over static {}", lf_standName(ac.sid), ac.cs, p.cs);
    removeAircraftFromSim(p);
    return;
  }
}

void lf_keepStandFree(std::string_view id) {
  const auto it = std::find_if(gStands.begin(), gStands.end(), [&](const Stand& s) { return s.id == id; });
  if (id.empty() || it == gStands.end()) return;
  const auto sid = static_cast<std::int32_t>(it->number);
  for (AcRecord& p : gParkedAc) {
    if (p.sid != sid || p.simState != kActive) continue;
    gf_log("{:8}: {:8} static removed, the stand is kept for the user", it->id, p.cs);
    removeAircraftFromSim(p);
    return;
  }
  for (LiveAc& o : gLiveAc) {
    if (o.sid != sid || o.flightState != kParked || o.simState != kActive) continue;
    gf_log("{:8}: {:8} removed, the stand is kept for the user", it->id, o.cs);
    removeAircraftFromSim(o);
    return;
  }
}

}  // namespace orv
