#pragma once
// A small apron for the stand rules: stands laid out in metres east and north of a reference
// point at the park airport, live and static aircraft put straight into the engine's tables,
// and the user placed where a test wants it.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "airportdata/stands.h"
#include "engine/geodesy.h"
#include "engine/live_aircraft.h"
#include "test_support.h"

namespace orv::test {

// The reference point of the apron: Schiphol.
inline constexpr LatLon kApron{52.3086, 4.7639};

// The point `east` and `north` metres from the reference point.
LatLon apronAt(double east, double north);
double metres(double nm);

class StandTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A stand at (east, north) metres; its number is its place. Call `numberStands` when all are
  // laid out, so that touching stands know each other.
  Stand& addStand(const std::string& id, double east, double north, double radiusM, std::uint16_t type = 0);
  void numberStands();
  Stand& stand(const std::string& id);
  std::int32_t sid(const std::string& id) { return static_cast<std::int32_t>(stand(id).number); }

  // A live aircraft in the simulator (active, objectid set) at (east, north) metres.
  LiveAc& addLive(const std::string& cs, double east, double north, double hwspM = 17.0, std::int32_t acClass = kLarge);
  // The same, standing at its stand.
  LiveAc& addParkedLive(const std::string& cs, const std::string& standId, double hwspM = 17.0);
  // A static aircraft in the simulator at this stand.
  AcRecord& addStatic(const std::string& cs, const std::string& standId, const std::string& reg = {},
                      double hwspM = 17.0);
  LiveAc* live(const std::string& cs);
  AcRecord* statik(const std::string& cs);
  bool removed(const AcRecord* ac) const { return ac != nullptr && ac->simState == kRemovingFromSim; }

  // The stand the user stands on, as airport parking would answer it.
  static void userStandsAt(const std::string& id);

  LogCapture log;
};

}  // namespace orv::test
