#include "stand_fixture.h"

#include <cmath>

#include "airportdata/stand_numbering.h"
#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/park_airport_site.h"
#include "engine/reserved_stand.h"
#include "engine/user_snapshot.h"

namespace orv::test {
namespace {

std::string gUserStandId;
std::uint32_t gNextObject = 500;

}  // namespace

LatLon apronAt(double east, double north) {
  const LatLon n = gf_destination(kApron, 0.0, north / 0.3048);
  return gf_destination(n, kTwoPi / 4, east / 0.3048);
}

double metres(double nm) { return nm * kMetersPerNm; }

void StandTest::SetUp() {
  // Tests hold references into the tables while they add records.
  gLiveAc.reserve(512);
  gParkedAc.reserve(256);
  gStands.clear();
  gParkAirportSite = {};
  gParkAirportSite.chosen = true;
  gParkAirportSite.lat = kApron.lat;
  gParkAirportSite.lon = kApron.lon;
  gUserSnapshot = {};
  gv_userHalfWingSpan = 0.0;
  gv_userOnGround = false;
  gUserStandId.clear();
  gv_userStandAt.set(nullptr);
}

void StandTest::TearDown() {
  gStands.clear();
  gParkAirportSite = {};
  gUserSnapshot = {};
  gv_userHalfWingSpan = 0.0;
  gv_userStandAt.set(nullptr);
}

Stand& StandTest::addStand(const std::string& id, double east, double north, double radiusM, std::uint16_t type) {
  Stand s;
  s.id = id;
  const LatLon p = apronAt(east, north);
  s.latitude = p.lat;
  s.longitude = p.lon;
  s.radius = radiusM * kNmPerMetre;
  s.type = type;
  s.number = static_cast<std::uint32_t>(gStands.size() + 1);
  gStands.push_back(s);
  return gStands.back();
}

void StandTest::numberStands() { lf_numberStands(gStands); }

Stand& StandTest::stand(const std::string& id) {
  for (Stand& s : gStands)
    if (s.id == id) return s;
  ADD_FAILURE() << "no stand " << id;
  return gStands.front();
}

LiveAc& StandTest::addLive(const std::string& cs, double east, double north, double hwspM, std::int32_t acClass) {
  LiveAc ac;
  ac.cs = cs;
  ac.hexid = 70000 + static_cast<std::uint32_t>(gLiveAc.size());
  ac.objectid = ++gNextObject;
  ac.simState = kActive;
  ac.hwsp = hwspM * kNmPerMetre;
  ac.acClass = acClass;
  ac.taxiSpeed = 15;  // the drive onto a stand is timed by it
  const LatLon p = apronAt(east, north);
  ac.lat = p.lat;
  ac.lon = p.lon;
  ac.onGround = 1;
  gf_setFlightState(ac, kTaxi);
  Sample s;
  s.lat = p.lat;
  s.lon = p.lon;
  ac.stream.push_back(s);
  return gLiveAc[gf_addLiveAc(std::move(ac))];
}

LiveAc& StandTest::addParkedLive(const std::string& cs, const std::string& standId, double hwspM) {
  const Stand& st = stand(standId);
  LiveAc& ac = addLive(cs, 0, 0, hwspM);
  ac.lat = ac.standLat = st.latitude;
  ac.lon = ac.standLon = st.longitude;
  ac.sid = static_cast<std::int32_t>(st.number);
  gf_setFlightState(ac, kParked);
  return ac;
}

AcRecord& StandTest::addStatic(const std::string& cs, const std::string& standId, const std::string& reg,
                               double hwspM) {
  const Stand& st = stand(standId);
  AcRecord p;
  p.cs = cs;
  p.reg = reg;
  p.hexid = static_cast<std::uint32_t>(gParkedAc.size() + 1);
  p.objectid = ++gNextObject;
  p.simState = kActive;
  p.hwsp = hwspM * kNmPerMetre;
  p.sid = static_cast<std::int32_t>(st.number);
  p.standLat = st.latitude;
  p.standLon = st.longitude;
  gParkedAc.push_back(p);
  return gParkedAc.back();
}

LiveAc* StandTest::live(const std::string& cs) {
  for (LiveAc& ac : gLiveAc)
    if (ac.cs == cs) return &ac;
  return nullptr;
}

AcRecord* StandTest::statik(const std::string& cs) {
  for (AcRecord& p : gParkedAc)
    if (p.cs == cs) return &p;
  return nullptr;
}

void StandTest::userStandsAt(const std::string& id) {
  gUserStandId = id;
  gv_userStandAt.set([](double, double, std::string& out) { out = gUserStandId; });
}

}  // namespace orv::test
