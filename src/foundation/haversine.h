#pragma once
// The one great-circle distance of the program: the haversine form on a sphere of
// 3437.7467707849 nautical miles. The engine's geodesy and the stand tables both measure with it.
namespace orv {

// Distance in nautical miles between two positions in degrees.
double gf_haversineNm(double lat1, double lon1, double lat2, double lon2);

}  // namespace orv
