#include "airportdata/stand_numbering.h"

#include "foundation/haversine.h"

namespace orv {

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
      if (!standsCollide(stands[a], stands[b])) continue;
      stands[a].adjacent.push_back(stands[b].number);
      stands[b].adjacent.push_back(stands[a].number);
    }
  }
  for (Stand& stand : stands) stand.adjacent.shrink_to_fit();
}

}  // namespace orv
