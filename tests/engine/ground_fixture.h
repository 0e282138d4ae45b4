#pragma once
// Aircraft on the ground, put straight into the live table as the simulator would have them,
// and the stands of a park airport, for the ground motion and the arrival at stands.
#include <cstdint>
#include <string>
#include <vector>

#include "airportdata/stands.h"
#include "engine/geodesy.h"
#include "flight_fixture.h"

namespace orv::test {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kDeg = kPi / 180.0;
inline constexpr double kMetre = 1.0 / 1852.0;  // in nautical miles

// What the learning of stand use was told: stand number and mode.
struct StandReport {
  std::int32_t sid = 0;
  int mode = 0;
};

class GroundFlight : public EngineFlight {
 protected:
  void SetUp() override;
  void TearDown() override;

  // An active live aircraft standing on the ground at `at`, heading `headingDeg`, taxiing,
  // with one sample due now. Its half wingspan is 18.5 m.
  std::uint32_t groundAircraft(std::int32_t acClass, LatLon at, double headingDeg);
  // The same aircraft parked at stand `sid`, its stream ended: a parked leg of a week.
  std::uint32_t parkedAircraft(std::int32_t acClass, std::int32_t sid);
  LiveAc& live(std::uint32_t hexid);
  // A stand of the park airport; returns its number.
  std::int32_t addStand(const std::string& id, LatLon at, double headingDeg, double radiusMetres);
  // A sample for the stream, on the ground.
  static Sample groundSample(LatLon p, double gs, std::int32_t tick);
  // Where the aircraft is as the record holds it.
  static LatLon where(const LiveAc& ac) { return {ac.lat, ac.lon}; }
  // The calls of the port that start with `prefix`, in order.
  std::vector<std::string> calls(const std::string& prefix) const;

  static std::vector<StandReport> standReports;

 private:
  std::uint32_t nextHexid_ = 400001;
};

}  // namespace orv::test
