#include "engine/geodesy.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orv {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDeg = kPi / 180.0;
constexpr LatLon kJfk{40.6413, -73.7781};
constexpr LatLon kLhr{51.4700, -0.4543};

TEST(Geodesy, DistancesInNauticalMiles) {
  // The earth radius makes one minute of arc one nautical mile.
  EXPECT_NEAR(gf_distance({0, 0}, {0, 1}), 60.0, 1e-9);
  EXPECT_NEAR(gf_distance({10, 20}, {11, 20}), 60.0, 1e-9);
  EXPECT_NEAR(gf_distance({90, 0}, {-90, 0}), 10800.0, 1e-6);
  EXPECT_NEAR(gf_distance({0, 179.5}, {0, -179.5}), 60.0, 1e-9) << "across the antimeridian";
  // New York to London: 2999 nm on the ellipsoid, 2989.35 nm on the sphere.
  EXPECT_NEAR(gf_distance(kJfk, kLhr), 2989.35, 0.01);
  EXPECT_DOUBLE_EQ(gf_distance(kJfk, kLhr), gf_distance(kLhr, kJfk));
  EXPECT_EQ(gf_distance(kJfk, kJfk), 0.0);
}

TEST(Geodesy, BearingsStayInZeroToTwoPi) {
  EXPECT_NEAR(gf_bearing({0, 0}, {1, 0}), 0.0, 1e-12);
  EXPECT_NEAR(gf_bearing({0, 0}, {0, 1}), kPi / 2, 1e-12);
  EXPECT_NEAR(gf_bearing({0, 0}, {-1, 0}), kPi, 1e-12);
  EXPECT_NEAR(gf_bearing({0, 0}, {0, -1}), 3 * kPi / 2, 1e-12) << "west is 270 degrees, never negative";
  EXPECT_NEAR(gf_bearing(kJfk, kLhr), 51.3525 * kDeg, 1e-5);
  EXPECT_NEAR(gf_bearing(kLhr, kJfk), 287.9432 * kDeg, 1e-5);
}

TEST(Geodesy, DestinationFoldsTheLongitude) {
  // 60 nm east along the equator is one degree.
  const LatLon east = gf_destination({0, 10}, kPi / 2, 60 * 6076.11549);
  EXPECT_NEAR(east.lat, 0.0, 1e-9);
  EXPECT_NEAR(east.lon, 11.0, 1e-9);
  const LatLon across = gf_destination({0, 179.9}, kPi / 2, 12 * 6076.11549);
  EXPECT_NEAR(across.lon, -179.9, 1e-9);
  const LatLon back = gf_destination({0, -179.9}, 3 * kPi / 2, 12 * 6076.11549);
  EXPECT_NEAR(back.lon, 179.9, 1e-9);
  // Going out and measuring again gives the same distance and bearing.
  const LatLon p = gf_destination(kJfk, 1.0, 100 * 6076.11549);
  EXPECT_NEAR(gf_distance(kJfk, p), 100.0, 1e-6);
  EXPECT_NEAR(gf_bearing(kJfk, p), 1.0, 1e-9);
}

TEST(Geodesy, NormAngleAndSamePosition) {
  EXPECT_DOUBLE_EQ(gf_normAngle(1.0), 1.0);
  EXPECT_DOUBLE_EQ(gf_normAngle(3 * kPi / 2), -kPi / 2);
  EXPECT_DOUBLE_EQ(gf_normAngle(-3 * kPi / 2), kPi / 2);
  EXPECT_DOUBLE_EQ(gf_normAngle(kPi), kPi);
  EXPECT_TRUE(gf_samePosition({50, 8}, {50 + 0.9e-8, 8 - 0.9e-8}));
  EXPECT_FALSE(gf_samePosition({50, 8}, {50 + 2e-8, 8}));
}

}  // namespace
}  // namespace orv
