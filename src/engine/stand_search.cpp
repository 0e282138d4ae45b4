// Turning a position into a stand: the fit of an aircraft to a stand, the nearest stand that
// takes it, the stand of an aircraft that the feed reports standing, and the end of a taxi.
#include <array>
#include <string>

#include "airportdata/stands.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/ground_motion.h"
#include "engine/park_airport_site.h"
#include "engine/reserved_stand.h"
#include "engine/stand_contention.h"
#include "engine/user_snapshot.h"
#include "foundation/log.h"

namespace orv {
namespace {

// Classes that a stand of each type takes, one bit per class; type 0 goes by radius instead.
constexpr std::uint8_t bits(std::initializer_list<int> classes) {
  std::uint8_t b = 0;
  for (int c : classes) b = static_cast<std::uint8_t>(b | (1u << c));
  return b;
}
constexpr std::array<std::uint8_t, 16> kTypeClasses = {
    0,                // 0: by radius
    bits({0}),        // 1
    bits({0}),        // 2
    bits({0, 1, 4}),  // 3
    bits({1, 2}),     // 4
    bits({2, 3}),     // 5
    bits({2, 3}),     // 6
    bits({4}),        // 7
    bits({1, 2}),     // 8
    bits({2}),        // 9
    bits({3}),        // 10
    bits({0, 5}),     // 11
    0x3f,             // 12: a fuel stand takes every class
    0,                // 13
    bits({0, 4}),     // 14
    bits({2, 3}),     // 15
};

LatLon standPos(const Stand& s) { return {s.latitude, s.longitude}; }

// A learned option that names this aircraft: its callsign or its code.
bool lf_knownUser(const Stand& stand, const AcRecord& ac) {
  if (ac.cs.empty() || !lf_standFits(stand, ac)) return false;
  for (const StandOpt& o : stand.opts) {
    if (o.number == 0 || o.real != 1) continue;
    if (o.cs == ac.cs || o.cs2 == ac.cs || o.acCode.sameAs(ac.code)) return true;
  }
  return false;
}

}  // namespace

bool lf_standFits(const Stand& stand, const AcRecord& ac) {
  // Spans and radii come in metres: a hair of rounding must not turn 1.8 m into more.
  if (stand.type == 0) return ac.hwsp - stand.radius <= kSpareWidthNm + 1e-12;
  if (stand.type >= kTypeClasses.size() || ac.acClass < 0 || ac.acClass > kRotorcraft) return false;
  return (kTypeClasses[stand.type] >> ac.acClass) & 1u;
}

Stand* lf_closestStand(LatLon pos, AcRecord& ac, double limit, bool wide) {
  double best = 900, secondBest = 900;
  Stand *result = nullptr, *second = nullptr, *tooSmall = nullptr;
  for (Stand& stand : gStands) {
    const double d = gf_distance(pos, standPos(stand));
    if (d <= limit && d < best) {
      if (lf_standFits(stand, ac)) {
        best = d, result = &stand, wide = false;
      } else if (d <= kCloseToStandNm) {
        // Reported this close, the aircraft stands here whatever the stand's size says.
        best = d, result = &stand, wide = false, tooSmall = &stand;
      }
    } else if (wide && d <= kWideReachNm && d < secondBest && lf_knownUser(stand, ac)) {
      secondBest = d, second = &stand;
    }
  }
  if (result == nullptr) result = second;
  if (result == nullptr) return nullptr;
  if (result->heli != (ac.acClass == kRotorcraft)) return nullptr;
  if (result == tooSmall) {
    result->radius = ac.hwsp - kOneMetreNm;
    result->radiusChange = true;
    gv_countLearnedUpdate();
  }
  return result;
}

bool lf_isUserStand(const Stand& stand) {
  if (!gReservedStand.empty() && stand.id == gReservedStand) return true;
  std::string userStand;
  gv_userStandAt(gUserSnapshot.lat, gUserSnapshot.lon, userStand);
  return !userStand.empty() && stand.id == userStand;
}

std::optional<SpawnStand> lf_standAtSpawn(LiveAc& ac) {
  auto& s = ac.stream;
  if (gStands.empty() || !gParkAirportSite.chosen || s.empty()) return std::nullopt;
  if (gf_distance({s[0].lat, s[0].lon}, {gParkAirportSite.lat, gParkAirportSite.lon}) > 5.0) return std::nullopt;
  const Sample& last = s.back();
  LatLon at{s[0].lat, s[0].lon};
  if (!s[0].stopped) {
    // Rolling slowly into its stand within the buffer counts as standing there.
    if (s.size() < 2 || s[1].gs > 5 || gf_distance(at, {last.lat, last.lon}) > kStreamEndNm) return std::nullopt;
    at = {last.lat, last.lon};
  }
  Stand* stand = lf_closestStand(at, ac, kStandReachNm, s[0].stopped != 0);
  if (stand == nullptr || lf_isUserStand(*stand)) return std::nullopt;
  bool free = lf_standFree(static_cast<std::int32_t>(stand->number), ac.cs);
  for (std::uint32_t n : stand->adjacent) free = free && lf_adjacentFree(n, ac, *stand);
  if (!free) {
    ac.erase = 1;  // the occupant keeps the stand; the next report starts a new record
    return std::nullopt;
  }
  lf_staticsMakeWay(ac, *stand);
  if (!s[0].stopped) {
    s[0].stopped = 1;
    s[0].gs = 0;
  }
  return SpawnStand{static_cast<std::int32_t>(stand->number), stand->latitude, stand->longitude, stand->heading,
                    static_cast<std::uint8_t>(stand->cargo)};
}

void try2Park(LiveAc& ac, bool wide) {
  auto& s = ac.stream;
  if (s.empty()) {
    gf_logError("{} empty sz?", "try2Park");
    return;
  }
  const Sample& last = s.back();
  // The walk through the stands isn't repeated for the same report.
  if (gf_samePosition({last.lat, last.lon}, {ac.parkCheckLat, ac.parkCheckLon})) return;
  ac.parkCheckLat = last.lat;
  ac.parkCheckLon = last.lon;
  Stand* found = lf_closestStand({last.lat, last.lon}, ac, wide ? kStandReachNm : kCloseToStandNm, wide);
  if (found == nullptr || lf_isUserStand(*found)) return;
  const Stand& stand = *found;
  for (LiveAc& o : gLiveAc) {
    if (&o == &ac || o.sid != static_cast<std::int32_t>(stand.number)) continue;
    // An arriving aircraft always wins against one that stands.
    if (o.flightState == kParked && o.simState == kActive) {
      gf_log("{:8}: {:8} removed, {} wants to park there", stand.id, o.cs, ac.cs);
      removeAircraftFromSim(o);
    }
    break;
  }
  for (std::uint32_t n : stand.adjacent) lf_clearAdjacent(n, ac, stand);
  lf_staticsMakeWay(ac, stand);
  ac.standLat = stand.latitude;
  ac.standLon = stand.longitude;
  ac.standHeading = stand.heading;
  ac.sid = static_cast<std::int32_t>(stand.number);
  ac.standCargo = stand.cargo ? 1 : 0;
  if (s.size() > 1) s.resize(1);
  gf_setFlightState(ac, kParking);
  drive2Stand(ac, stand);
}

}  // namespace orv
