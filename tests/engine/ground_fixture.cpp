#include "ground_fixture.h"

#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/new_aircraft.h"
#include "engine/park_airport_site.h"
#include "foundation/parameters.h"

namespace orv::test {

std::vector<StandReport> GroundFlight::standReports;

void GroundFlight::SetUp() {
  EngineFlight::SetUp();
  gStands.clear();
  gParkAirportSite = ParkAirportSite{};
  standReports.clear();
  gv_addRealStandOption.set([](std::int32_t sid, LiveAc&, int mode) { standReports.push_back({sid, mode}); });
}

void GroundFlight::TearDown() {
  gv_addRealStandOption.set(nullptr);
  STRAIGHT_PBS_ONLY.value = false;
  gStands.clear();
  gParkAirportSite = ParkAirportSite{};
  EngineFlight::TearDown();
}

std::uint32_t GroundFlight::groundAircraft(std::int32_t acClass, LatLon at, double headingDeg) {
  const std::uint32_t hexid = nextHexid_++;
  TrafficMsg m;
  m.hexid = hexid;
  m.ident.cs = "GND" + std::to_string(hexid % 1000);
  m.sample = groundSample(at, 0, gv_tick);
  m.sample.stopped = 1;
  LiveAc ac = gf_makeLiveAc(std::move(m), acClass, 10 * kMetre * 1.85);
  ac.simState = kActive;
  ac.objectid = hexid - 400000 + 1000;
  ac.onGround = 1;
  ac.flightState = kTaxi;
  ac.prevFlightState = kFlying;
  ac.lat = at.lat;
  ac.lon = at.lon;
  ac.alt = 0;
  ac.agl = 0;
  ac.heading = headingDeg * kDeg;
  ac.throttleIdx = 0;
  ac.flapsIdx = 1;
  gf_addLiveAc(std::move(ac));
  return hexid;
}

std::uint32_t GroundFlight::parkedAircraft(std::int32_t acClass, std::int32_t sid) {
  const Stand& stand = *findStand(gStands, static_cast<std::uint32_t>(sid));
  const std::uint32_t hexid = groundAircraft(acClass, {stand.latitude, stand.longitude}, stand.heading / kDeg);
  LiveAc& ac = live(hexid);
  ac.flightState = kParked;
  ac.prevFlightState = kParking;
  ac.sid = sid;
  ac.standLat = stand.latitude;
  ac.standLon = stand.longitude;
  ac.standHeading = stand.heading;
  ac.throttleIdx = 0;
  ac.flapsIdx = 0;
  steps(2);  // the stream runs out: the parked leg
  return hexid;
}

LiveAc& GroundFlight::live(std::uint32_t hexid) {
  const int i = gf_findLiveAc(hexid);
  EXPECT_GE(i, 0) << "no record of " << hexid;
  return gLiveAc.at(static_cast<std::size_t>(i));
}

std::int32_t GroundFlight::addStand(const std::string& id, LatLon at, double headingDeg, double radiusMetres) {
  Stand s;
  s.id = id;
  s.latitude = at.lat;
  s.longitude = at.lon;
  s.heading = headingDeg * kDeg;
  s.radius = radiusMetres * kMetre;
  s.number = static_cast<std::uint32_t>(gStands.size() + 1);
  gStands.push_back(s);
  return static_cast<std::int32_t>(s.number);
}

Sample GroundFlight::groundSample(LatLon p, double gs, std::int32_t tick) {
  Sample s;
  s.lat = p.lat;
  s.lon = p.lon;
  s.gs = s.tas = gs;
  s.tick = tick;
  return s;
}

std::vector<std::string> GroundFlight::calls(const std::string& prefix) const {
  std::vector<std::string> out;
  for (const PortCall& c : port.calls)
    if (c.what.starts_with(prefix)) out.push_back(c.what);
  return out;
}

}  // namespace orv::test
