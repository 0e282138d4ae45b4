// The stand table once an airport is read: numbers, adjacency, names, and the quality factors.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "airportdata/quality_factors.h"
#include "airportdata/stand_numbering.h"
#include "airportdata/stands.h"

namespace orv::test {
namespace {

// Degrees of latitude for a distance in metres on the program's sphere (3437.7467707849 nm).
double degreesFor(double metres) { return metres / 1852.0 / 3437.7467707849 * 180.0 / std::numbers::pi; }

Stand standAt(std::string id, double latitude, double radiusMetres) {
  Stand s;
  s.id = std::move(id);
  s.latitude = latitude;
  s.longitude = 4.0;
  s.radius = radiusMetres * kNmPerMetre;
  return s;
}

StandOpt oneOption(std::uint32_t day, std::uint64_t hours, bool real, std::uint32_t number = 1) {
  StandOpt o;
  o.day = day;
  o.hours = hours;
  o.real = real ? 1 : 0;
  o.number = number;
  return o;
}

TEST(StandTable, StandsCollideWhenTheirRadiiExceedATenthMoreThanTheirDistance) {
  // Radii 5 m and 6 m: 11 > 1.1 x 9.9 = 10.89, but not 11 > 1.1 x 10.
  std::vector<Stand> stands{standAt("A", 52.0, 5.0), standAt("B", 52.0 + degreesFor(9.9), 6.0),
                            standAt("C", 52.0 + degreesFor(9.9) + degreesFor(10.0) + 1e-12, 5.0)};
  lf_numberStands(stands);
  EXPECT_NEAR(gf_standDistanceNm(stands[0], stands[1]) * 1852.0, 9.9, 1e-6);
  EXPECT_EQ(stands[0].adjacent, std::vector<std::uint32_t>{2});
  EXPECT_EQ(stands[1].adjacent, std::vector<std::uint32_t>{1});
  EXPECT_TRUE(stands[2].adjacent.empty()) << "10 m from B: radii 6 + 5 do not exceed 11";
  EXPECT_EQ(stands[2].number, 3u);

  // Numbering again starts from scratch: adjacency follows the table as it is now.
  stands.erase(stands.begin());
  lf_numberStands(stands);
  EXPECT_EQ(stands[0].number, 1u);
  EXPECT_TRUE(stands[0].adjacent.empty());
}

TEST(StandTable, StandsAreFoundAndNamedByNumber) {
  gStands = {standAt("A1", 52.0, 20.0), standAt("B7", 52.01, 20.0), standAt("C3", 52.02, 20.0)};
  lf_numberStands(gStands);
  EXPECT_EQ(findStand(gStands, 2)->id, "B7");
  EXPECT_EQ(findStand(gStands, 4), nullptr);
  EXPECT_EQ(findStand(gStands, 0), nullptr);
  EXPECT_EQ(lf_standName(3), "C3");
  EXPECT_EQ(lf_standName(9), "9");
  EXPECT_EQ(lf_standName(-1), "-1");
}

TEST(QualityFactors, ScoreOptionsPerStandWeightedBySize) {
  std::vector<Stand> stands;
  EXPECT_EQ(computeQualityFactors(stands), (QualityFactors{-1, -1}));
  stands.push_back(standAt("A", 52.0, 20.0));
  EXPECT_EQ(computeQualityFactors(stands), (QualityFactors{-1, -1})) << "no option anywhere";
  EXPECT_EQ(qualityFactorText({-1, -1}), "  ");

  // One real option on one day in one half hour: (10000 + 20 + 100 + 2) x 0.00625 = 63.
  stands[0].opts.push_back(oneOption(3, 1u << 20, true));
  EXPECT_EQ(computeQualityFactors(stands), (QualityFactors{63, 0}));
  EXPECT_EQ(qualityFactorText({63, 0}), "63");

  // A withdrawn option counts for nothing; a stand without options lowers the average.
  stands[0].opts.push_back(oneOption(4, 0xFFFF, true, 0));
  stands.push_back(standAt("B", 52.01, 20.0));
  EXPECT_EQ(computeQualityFactors(stands), (QualityFactors{32, 0}));
  EXPECT_EQ(qualityFactorText({32, 0}), "32/ 0");
  EXPECT_EQ(qualityFactorText({44, 7}), "44/ 7");
  EXPECT_EQ(qualityFactorText({45, 7}), "45");

  // Helipads and fuel stands carry no weight.
  stands[1].heli = true;
  stands.push_back(standAt("F", 52.02, 20.0));
  stands[2].type = kStandTypeFuel;
  stands[2].opts.push_back(oneOption(1, 1, false));
  EXPECT_EQ(computeQualityFactors(stands), (QualityFactors{63, 0}));

  // Soft options: 20 options on 7 days with 48 half hours each: 10000 + 400 + 700 + 1200.
  std::vector<Stand> soft{standAt("S", 52.0, 20.0)};
  for (std::uint32_t i = 0; i < 20; ++i)
    soft[0].opts.push_back(oneOption(i % 7 + 1, (std::uint64_t{1} << 48) - 1, false, i + 1));
  EXPECT_EQ(computeQualityFactors(soft), (QualityFactors{0, 77}));
}

TEST(QualityFactors, ATableOfHelipadsWithOptionsScoresZeroNotUnknown) {
  std::vector<Stand> stands{standAt("H1", 52.0, 10.0), standAt("H2", 52.01, 10.0)};
  for (Stand& s : stands) s.heli = true;
  stands[0].opts.push_back(oneOption(1, 1, true));
  EXPECT_EQ(computeQualityFactors(stands), (QualityFactors{0, 0}));
  EXPECT_EQ(qualityFactorText({0, 0}), " 0/ 0");
}

}  // namespace
}  // namespace orv::test
