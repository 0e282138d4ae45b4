#include "engine/pushback.h"

#include <cmath>

#include "airportdata/stands.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/ground_curve.h"
#include "engine/motion.h"
#include "engine/sim_port.h"
#include "foundation/log.h"

namespace orv {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kNmPerTickToKnots = 360000.0;

std::int32_t lf_taxiTicks(const LiveAc& ac, LatLon a, LatLon b) {
  return static_cast<std::int32_t>(std::lround(gf_distance(a, b) / ac.taxiSpeed * kNmPerTickToKnots));
}

// A taxi sample at p: the aircraft's own sample moved there, at taxi speed.
Sample lf_taxiSample(const LiveAc& ac, LatLon p, std::int32_t tick) {
  Sample s = ac.stream[0];
  s.lat = p.lat;
  s.lon = p.lon;
  s.gs = s.tas = ac.taxiSpeed;
  s.vs = 0;
  s.tick = tick;
  s.airborne = 0;
  s.stopped = 0;
  s.trueHeading.reset();
  return s;
}

void lf_taxiLights(const LiveAc& ac) { gf_sim().setLights(ac.objectid, true, true, false, true, false, true, false); }

}  // namespace

void lf_pullOut(LiveAc& ac) {
  ac.leavingStand = 0;
  ac.extendCount = 0;
  const LatLon here{ac.lat, ac.lon};
  const LatLon target = gf_destination({ac.standLat, ac.standLon}, ac.standHeading, 2.0 * ac.hwsp * kFeetPerNm);
  ac.stream[0].gs = ac.taxiSpeed;
  Sample s = lf_taxiSample(ac, target, gv_tick + lf_taxiTicks(ac, here, target));
  s.track = ac.standHeading * kDegreesPerRadian;
  ac.stream.resize(1);
  ac.stream.push_back(s);
  gf_setFlightState(ac, kTaxi);
  ac.targetHeading = ac.heading;
  lf_taxiLights(ac);
  gf_sim().startEngines(ac.objectid);
  gf_sim().setThrottle(ac, 0);
  gf_sim().setFlaps(ac, 1);
  gf_log("{:8}: {:8} pulling out", lf_standName(ac.sid), ac.cs);
}

void lf_pushBack(LiveAc& ac) {
  ac.extendCount = 0;
  const double r = gf_foldHeading(ac.standHeading + kPi);
  const Stand* stand = ac.sid > 0 ? findStand(gStands, static_cast<std::uint32_t>(ac.sid)) : nullptr;
  if (stand == nullptr) return;
  const LatLon here{ac.lat, ac.lon};
  // In line with the stand, far enough out for the nose to swing clear.
  const LatLon p1 = gf_destination(here, r, stand->radius * 2.5 * kFeetPerNm);
  const std::int32_t firstTicks = lf_taxiTicks(ac, here, p1);
  ac.stream[0].gs = ac.taxiSpeed;
  ac.targetHeading = ac.heading;
  const Sample straight = lf_taxiSample(ac, p1, gv_tick + firstTicks);
  ac.stream.resize(1);
  ac.stream.push_back(straight);
  lf_splitLeg(ac);
  const LatLon mid{ac.stream[1].lat, ac.stream[1].lon};
  const double w = ac.hwsp * kFeetPerNm;
  const LatLon endA = gf_destination(p1, r - kPi / 2, w);
  const LatLon endB = gf_destination(p1, r + kPi / 2, w);
  const std::int32_t half = gv_tick + firstTicks / 2;
  ac.stream.push_back(lf_taxiSample(ac, endA, half + lf_taxiTicks(ac, mid, endA)));
  ac.pushTail = lf_taxiSample(ac, endB, half + lf_taxiTicks(ac, mid, endB));
  lf_taxiLights(ac);
  gf_setFlightState(ac, kPushingBack);
  ac.pushStage = 2;
}

}  // namespace orv
