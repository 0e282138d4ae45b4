#pragma once
// Great-circle geodesy of the engine: positions in degrees, distances in nautical miles,
// angles in radians.
namespace orv {

struct LatLon {
  double lat = 0;
  double lon = 0;
};

// Equality of positions is always within 1e-8 degrees in each coordinate.
inline bool gf_samePosition(LatLon a, LatLon b) {
  const double dLat = a.lat - b.lat, dLon = a.lon - b.lon;
  return dLat <= 1e-8 && dLat >= -1e-8 && dLon <= 1e-8 && dLon >= -1e-8;
}

// Haversine distance in nautical miles.
double gf_distance(LatLon a, LatLon b);
// Initial bearing from a to b, 0 to 2π.
double gf_bearing(LatLon a, LatLon b);
// The point `feet` away from a along the great circle that leaves a on `heading`.
LatLon gf_destination(LatLon a, double heading, double feet);
// Brings an angle in -3π..3π into -π..π by adding or subtracting 2π once.
double gf_normAngle(double x);

}  // namespace orv
