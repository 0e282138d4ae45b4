#include "foundation/haversine.h"

#include <cmath>

namespace orv {
namespace {
constexpr double kRadPerDeg = 3.14159265358979323846 / 180.0;
// Twice the earth radius.
constexpr double kEarthDiameterNm = 6875.493541569878;
}  // namespace

double gf_haversineNm(double lat1, double lon1, double lat2, double lon2) {
  const double phi1 = lat1 * kRadPerDeg, phi2 = lat2 * kRadPerDeg;
  const double sLat = std::sin((phi2 - phi1) * 0.5);
  const double sLon = std::sin((lon2 - lon1) * kRadPerDeg * 0.5);
  const double x = sLat * sLat + std::cos(phi1) * std::cos(phi2) * sLon * sLon;
  return std::atan2(std::sqrt(x), std::sqrt(1.0 - x)) * kEarthDiameterNm;
}

}  // namespace orv
