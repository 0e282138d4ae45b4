#pragma once
// After all files of an airport are in: the stands get their numbers, and each learns which
// others it collides with.
#include <vector>

#include "airportdata/stands.h"

namespace orv {

// Distance between two stands in nautical miles (haversine).
double gf_standDistanceNm(const Stand& a, const Stand& b);

// Two different stands collide when their radii together exceed 1.1 times their distance.
bool standsCollide(const Stand& a, const Stand& b);

// Numbers the stands 1, 2, 3, ... in table order and fills every `adjacent` anew.
void lf_numberStands(std::vector<Stand>& stands);

}  // namespace orv
