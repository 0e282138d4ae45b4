#include "airportdata/stand_numbering.h"

#include <cmath>

#include "foundation/haversine.h"

namespace orv {
namespace {

// The program's earth radius in nautical miles, per degree of latitude.
constexpr double kNmPerDegreeLatitude = 3437.7467707849 * 3.14159265358979323846 / 180.0;

// A great circle is never shorter than its difference in latitude: stands that far apart cannot
// collide, and need no haversine. The margin leaves the cases near the limit to the exact rule.
bool tooFarByLatitude(const Stand& a, const Stand& b) {
  return 1.1 * std::abs(a.latitude - b.latitude) * kNmPerDegreeLatitude > (a.radius + b.radius) * (1.0 + 1e-9);
}

}  // namespace

double gf_standDistanceNm(const Stand& a, const Stand& b) {
  return gf_haversineNm(a.latitude, a.longitude, b.latitude, b.longitude);
}

bool standsCollide(const Stand& a, const Stand& b) { return a.radius + b.radius > 1.1 * gf_standDistanceNm(a, b); }

void lf_numberStands(std::vector<Stand>& stands) {
  for (std::size_t i = 0; i < stands.size(); ++i) {
    stands[i].number = static_cast<std::uint32_t>(i + 1);
    stands[i].adjacent.clear();
  }
  // The relation is symmetric: each pair is measured once.
  for (std::size_t a = 0; a < stands.size(); ++a) {
    for (std::size_t b = a + 1; b < stands.size(); ++b) {
      if (tooFarByLatitude(stands[a], stands[b]) || !standsCollide(stands[a], stands[b])) continue;
      stands[a].adjacent.push_back(stands[b].number);
      stands[b].adjacent.push_back(stands[a].number);
    }
  }
  for (Stand& stand : stands) stand.adjacent.shrink_to_fit();
}

}  // namespace orv
