#include "engine/ground_curve.h"

#include <cmath>
#include <limits>

#include "engine/geodesy.h"
#include "engine/motion.h"
#include "foundation/log.h"

namespace orv {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kHalfDegree = 0.5 / kDegreesPerRadian;
constexpr double kLastCurveT = 0.999999;
constexpr double kSplitSpeedKnots = 5.0;
constexpr double kSplitMinNm = 100.0 / kMetersPerNm;

LatLon pos(const Sample& s) { return {s.lat, s.lon}; }

// Metres east per degree of longitude at the curve's first latitude.
double lf_metresPerDegreeLon(double lat0) {
  const double lat = lat0 > 180.0 ? lat0 - 360.0 : lat0;
  return std::cos(lat / kDegreesPerRadian) * kMetersPerDegreeLat;
}

}  // namespace

void lf_clearCurve(LiveAc& ac) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  ac.curveT0 = ac.curveT1 = ac.curveMidE = ac.curveMidN = nan;
}

bool lf_curveInForce(const LiveAc& ac) {
  return !std::isnan(ac.curveT0) && !std::isnan(ac.curveT1) && !std::isnan(ac.curveMidE) && !std::isnan(ac.curveMidN);
}

bool lf_evalCurve(const LiveAc& ac, double t, double& lat, double& lon, double& heading) {
  if (!lf_curveInForce(ac) || std::isnan(ac.curveEndE) || std::isnan(ac.curveEndN)) return false;
  if (!(t >= ac.curveT0 && t <= ac.curveT1)) return false;
  const double u = t;
  const double a = 2.0 * (1.0 - u) * u, b = u * u;
  const double east = a * ac.curveMidE + b * ac.curveEndE;
  const double north = a * ac.curveMidN + b * ac.curveEndN;
  lat = ac.curveLat0 + north / kMetersPerDegreeLat;
  lon = ac.curveLon0 + east / lf_metresPerDegreeLon(ac.curveLat0);
  const double dE = (ac.curveEndE - ac.curveMidE) * 2.0 * u + ac.curveMidE * 2.0 * (1.0 - u);
  const double dN = (ac.curveEndN - ac.curveMidN) * 2.0 * u + ac.curveMidN * 2.0 * (1.0 - u);
  heading = std::atan2(dE, dN);
  if (heading < 0) heading += kTwoPi;
  return true;
}

void lf_followCurve(LiveAc& ac) {
  ac.curveT = std::fmin(std::fmax(ac.curveT + ac.curveStep, 0.0), kLastCurveT);
  double lat = 0, lon = 0, h = 0;
  if (!lf_evalCurve(ac, ac.curveT, lat, lon, h)) {
    gf_logError("{} error in curve at index: {:.2F}", ac.cs, ac.curveT);
    return;
  }
  ac.lat = lat;
  ac.lon = lon;
  // A pushback follows the curve tail first.
  if (ac.flightState == kPushingBack) h = gf_foldHeading(h + kPi);
  const double d = gf_normAngle(h - ac.heading);
  if (std::fabs(d) <= kHalfDegree) return;
  const double turn = std::fmin(std::fabs(d), ac.groundTurn);
  ac.heading = gf_foldHeading(ac.heading + (d > 0 ? turn : -turn));
}

void lf_buildCurve(LiveAc& ac) {
  auto& st = ac.stream;
  Sample& s2 = st[2];
  if (s2.gs == 0) s2.gs = (st[0].gs + st[1].gs) / 2;
  ac.curveLat0 = ac.lat;
  ac.curveLon0 = ac.lon;
  const double perLon = lf_metresPerDegreeLon(ac.lat);
  ac.curveMidN = (st[1].lat - ac.lat) * kMetersPerDegreeLat;
  ac.curveMidE = (st[1].lon - ac.lon) * perLon;
  ac.curveEndN = (s2.lat - ac.lat) * kMetersPerDegreeLat;
  ac.curveEndE = (s2.lon - ac.lon) * perLon;
  ac.curveT0 = 0;
  ac.curveT1 = 1;
  ac.curveT = 0;
  st.erase(st.begin() + 1);
}

void lf_splitLeg(LiveAc& ac) {
  auto& st = ac.stream;
  const Sample& s0 = st[0];
  const Sample& s1 = st[1];
  Sample m = s0;
  m.lat = (s0.lat + s1.lat) / 2;
  m.lon = (s0.lon + s1.lon) / 2;
  m.gs = (s0.gs + s1.gs) / 2;
  m.alt = (s0.alt + s1.alt) / 2;
  m.tick = static_cast<std::int32_t>(std::lround((static_cast<double>(s0.tick) + s1.tick) / 2));
  m.airborne = m.alt > 0 ? 1 : 0;
  m.stopped = 0;
  const Sample head = st[0];
  st.pop_front();
  st.push_front(m);
  st.push_front(head);
}

bool lf_speedSplitWanted(const LiveAc& ac) {
  const Sample& s0 = ac.stream[0];
  const Sample& s1 = ac.stream[1];
  return (s0.gs > 0 || s1.gs > 0) && std::fabs(s0.gs - s1.gs) > kSplitSpeedKnots &&
         gf_distance(pos(s0), pos(s1)) >= kSplitMinNm;
}

void lf_splitOnSpeed(LiveAc& ac) {
  if (lf_speedSplitWanted(ac)) lf_splitLeg(ac);
}

}  // namespace orv
