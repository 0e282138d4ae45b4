#include "engine/geodesy.h"

#include <cmath>

#include "foundation/haversine.h"

namespace orv {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kRadPerDeg = kPi / 180.0;
constexpr double kDegPerRad = 57.29577951308232;
constexpr double kRadiansPerFoot = 4.787404208238998e-8;

}  // namespace

double gf_distance(LatLon a, LatLon b) { return gf_haversineNm(a.lat, a.lon, b.lat, b.lon); }

double gf_bearing(LatLon a, LatLon b) {
  const double lat1 = a.lat * kRadPerDeg, lat2 = b.lat * kRadPerDeg;
  const double dLon = (b.lon - a.lon) * kRadPerDeg;
  const double y = std::sin(dLon) * std::cos(lat2);
  const double x = std::cos(lat1) * std::sin(lat2) - std::sin(lat1) * std::cos(lat2) * std::cos(dLon);
  double brg = std::atan2(y, x);
  if (brg < 0) brg += 2.0 * kPi;
  return brg;
}

LatLon gf_destination(LatLon a, double heading, double feet) {
  const double d = feet * kRadiansPerFoot;
  const double lat1 = a.lat * kRadPerDeg, lon1 = a.lon * kRadPerDeg;
  const double sinLat2 = std::sin(lat1) * std::cos(d) + std::cos(lat1) * std::sin(d) * std::cos(heading);
  const double lat2 = std::asin(sinLat2);
  double lon2 = lon1 + std::atan2(std::sin(heading) * std::sin(d) * std::cos(lat1), std::cos(d) - std::sin(lat1) * sinLat2);
  lon2 = std::remainder(lon2, 2.0 * kPi);  // folds across the antimeridian into -π..π
  return {lat2 * kDegPerRad, lon2 * kDegPerRad};
}

double gf_normAngle(double x) {
  if (x > kPi) return x - 2.0 * kPi;
  if (x < -kPi) return x + 2.0 * kPi;
  return x;
}

}  // namespace orv
