// Keeping aircraft out of the user's way and live aircraft out of static ones. Each step runs
// once a second and removes at most one aircraft; a loser is removed, never moved.
#include <array>
#include <cmath>

#include "engine/aircraft_removal.h"
#include "engine/engine_tables.h"
#include "engine/stand_contention.h"
#include "engine/user_snapshot.h"

namespace orv {
namespace {

struct Envelope {
  double distanceNm;
  double altitudeFt;
  double lateralFt;
};
constexpr std::array<Envelope, 2> kEnvelopes = {{{4.0, 1000, 700}, {6.0, 3000, 4000}}};

// Where the user stood at the last ground check; static aircraft are checked only after a move.
LatLon gv_lastUserGround;

LatLon userPos() { return {gUserSnapshot.lat, gUserSnapshot.lon}; }

}  // namespace

void lf_resetCollisionState() { gv_lastUserGround = {}; }

bool lf_insideEnvelope(LatLon pos, double alt, double heading, int index) {
  const Envelope& e = kEnvelopes[static_cast<std::size_t>(index)];
  const LatLon user = userPos();
  const double d = gf_distance(user, pos);
  if (d > e.distanceNm || std::abs(alt - gUserSnapshot.alt) >= e.altitudeFt) return false;
  const double x = gf_normAngle(heading - gf_bearing(user, pos));
  const double c = d * kFeetPerNm;
  if (std::cos(x) * c <= 0) return false;
  return std::abs(std::sin(x)) * c <= e.lateralFt;
}

bool lf_collisionTest(LiveAc& ac, int index) {
  if (!lf_insideEnvelope({ac.lat, ac.lon}, ac.alt, ac.heading, index)) return false;
  removeAircraftFromSim(ac);
  return true;
}

bool lf_insideUserAirEnvelope(const LiveAc& ac, LatLon pos) {
  return lf_insideEnvelope(pos, ac.stream.empty() ? ac.alt : ac.stream.front().alt, ac.heading, kEnvelopeSpawnHold);
}

void lf_collisionUserAir() {
  const LatLon user = userPos();
  const bool near = gUserSnapshot.agl <= 500;
  for (LiveAc& ac : gLiveAc) {
    if (ac.simState != kActive) continue;
    // The user low over the runway: an aircraft on the ground close to the nose line goes.
    const double d = gf_distance(user, {ac.lat, ac.lon});
    if (near && ac.onGround && d <= 1.0 && gUserSnapshot.agl < 500) {
      const double offset =
          std::abs(std::sin(gf_normAngle(gf_bearing(user, {ac.lat, ac.lon}) - gUserSnapshot.heading))) * d * kFeetPerNm;
      if (offset <= 50) {
        removeAircraftFromSim(ac);
        continue;
      }
    }
    if (lf_collisionTest(ac, kEnvelopeUserAir)) return;
  }
}

void lf_collisionUserGnd() {
  const LatLon user = userPos();
  const double userWing = gv_userHalfWingSpan.load();
  for (LiveAc& ac : gLiveAc) {
    if (!ac.onGround || ac.simState != kActive) continue;
    if ((userWing + ac.hwsp) * 1.15 >= gf_distance(user, {ac.lat, ac.lon})) {
      removeAircraftFromSim(ac);
      return;
    }
  }
  if (gf_samePosition(user, gv_lastUserGround)) return;
  gv_lastUserGround = user;
  for (AcRecord& p : gParkedAc) {
    if (p.simState != kActive) continue;
    if (p.hwsp * 1.1 + userWing * 1.1 >= gf_distance(user, {p.standLat, p.standLon})) {
      removeAircraftFromSim(p);
      return;
    }
  }
}

void lf_collisionLiveParked() {
  if (gParkedAc.empty()) return;
  for (LiveAc& ac : gLiveAc) {
    if (ac.simState != kActive || !ac.onGround || (ac.flightState != kTaxi && ac.flightState != kParking)) continue;
    if (gf_samePosition({ac.lat, ac.lon}, {ac.checkedLat, ac.checkedLon})) continue;
    // On the runway a static aircraft can't be in the way.
    if (ac.rollout || ac.takingOff) continue;
    ac.checkedLat = ac.lat;
    ac.checkedLon = ac.lon;
    for (AcRecord& p : gParkedAc) {
      if (p.simState != kActive || p.cs == ac.cs) continue;
      if ((p.hwsp + ac.hwsp) * 1.1 >= gf_distance({ac.lat, ac.lon}, {p.standLat, p.standLon})) {
        removeAircraftFromSim(p);
        return;
      }
    }
  }
}

}  // namespace orv
