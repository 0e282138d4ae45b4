// A whole landing through the engine step on a stepped clock: from 3 nm final over the flare,
// touch-down, spoilers and reverse and the roll-out to the taxi, and onto a stand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/ground_motion.h"
#include "engine/park_airport_site.h"
#include "engine/user_snapshot.h"
#include "ground_fixture.h"

namespace orv::test {
namespace {

constexpr LatLon kThreshold{50.03, 8.50};
constexpr double kRunway = 70;  // degrees

// The reports of a landing: 3 nm final at 140 knots down to the threshold, the roll-out along
// the runway, a turn off to the left, and a taxi at 15 knots that stops.
std::vector<Report> landingReports(LatLon& stopAt) {
  std::vector<Report> out;
  const double feetPerNm = 6076.11549;
  const LatLon start = gf_destination(kThreshold, (kRunway + 180) * kDeg, 3 * feetPerNm);
  double t = 0;
  for (; t <= 76; t += 2) {
    const double nm = 140 * t / 3600;
    const LatLon p = gf_destination(start, kRunway * kDeg, nm * feetPerNm);
    out.push_back({t, p.lat, p.lon, std::max(950.0 * (1 - nm / 3), 0.0) + (nm < 3 ? 1 : 0), 140, kRunway, -740, {}});
  }
  LatLon p = {out.back().lat, out.back().lon};
  double gs = 130;
  for (; gs > 20; gs -= 8, t += 2) {
    p = gf_destination(p, kRunway * kDeg, gs * 2 / 3600 * feetPerNm);
    out.push_back({t, p.lat, p.lon, 0, gs, kRunway, 0, {}});
  }
  const double taxiTrack = kRunway - 90;
  for (int i = 0; i < 30; ++i, t += 2) {
    p = gf_destination(p, taxiTrack * kDeg, 15.0 * 2 / 3600 * feetPerNm);
    out.push_back({t, p.lat, p.lon, 0, 15, taxiTrack, 0, {}});
  }
  for (int i = 0; i < 5; ++i, t += 2) out.push_back({t, p.lat, p.lon, 0, 0, taxiTrack, 0, {}});
  stopAt = p;
  return out;
}

TEST_F(GroundFlight, ALandingFromThreeMileFinalFlaresTouchesDownRollsOutAndParksAtAStand) {
  gParkAirportSite.chosen = true;
  gParkAirportSite.lat = kThreshold.lat;
  gParkAirportSite.lon = kThreshold.lon;
  gParkAirportSite.elevationFt = 0;
  gUserSnapshot.lat = 50.10;  // the user is elsewhere, 5 nm away
  gUserSnapshot.lon = 8.50;
  LatLon stopAt;
  const auto reports = landingReports(stopAt);
  const std::uint32_t id = 300001;
  const LatLon standAt = gf_destination(stopAt, (kRunway - 90) * kDeg, 60 / 0.3048);
  const std::int32_t sid = addStand("V12", standAt, kRunway - 90, 30);

  std::int32_t flare = -1, touchDown = -1, rolloutEnd = -1, parking = -1, parked = -1;
  double lowest = 1e9, fastestTaxi = 0, fastestDrive = 0;
  LatLon prev{};
  bool havePrev = false;
  fly(id, "DLH77", "A320", reports, 30000, [&] {
    if (gf_findLiveAc(id) < 0) return;
    LiveAc& ac = live(id);
    if (ac.simState != kActive) return;
    ac.reverser = 1;
    const LatLon here = where(ac);
    const double knots = havePrev ? gf_distance(prev, here) * 360000 : 0;
    prev = here, havePrev = true;
    if (flare < 0 && ac.flareStage > 0) flare = gv_tick;
    if (touchDown < 0 && ac.rollout) touchDown = gv_tick;
    if (touchDown >= 0 && rolloutEnd < 0 && !ac.rollout) rolloutEnd = gv_tick;
    lowest = std::min(lowest, ac.alt);
    if (rolloutEnd >= 0 && ac.flightState == kTaxi) fastestTaxi = std::max(fastestTaxi, knots);
    if (ac.flightState == kParking) fastestDrive = std::max(fastestDrive, knots);
    if (ac.onGround) {
      EXPECT_NEAR(ac.alt, 0, 1e-9) << "on the ground at tick " << gv_tick;
    }
    // Stopped at the end of the reports (the last metres lie within a standing aircraft's
    // noise): what the stand search does when it finds this stand.
    if (parking < 0 && rolloutEnd >= 0 && ac.flightState == kTaxi && ac.stream.back().stopped &&
        gf_distance(here, stopAt) < 20 * kMetre) {
      parking = gv_tick;
      const Stand& stand = *findStand(gStands, static_cast<std::uint32_t>(sid));
      ac.standLat = stand.latitude, ac.standLon = stand.longitude, ac.standHeading = stand.heading;
      ac.sid = sid;
      ac.stream.resize(1);
      ac.flightState = kParking;
      drive2Stand(ac, stand);
    }
    if (parked < 0 && ac.flightState == kParked) parked = gv_tick;
  });
  ASSERT_GT(flare, 0);
  ASSERT_GT(touchDown, flare);
  ASSERT_GT(rolloutEnd, touchDown);
  ASSERT_GT(parking, rolloutEnd);
  ASSERT_GT(parked, parking);
  EXPECT_GE(lowest, -1.0) << "at most one ground report late below the ground";
  EXPECT_LE(fastestTaxi, 16.0) << "taxiing at the reported 15 knots";
  EXPECT_LE(fastestDrive, 4.0 * 1.01) << "onto the stand at the taxi speed of a Large";
  // The simulator sees the landing in order: reverse at touch-down, all back at 90 knots.
  std::vector<std::string> levers;
  std::int32_t reverseAt = -1, leversOffAt = -1;
  for (const PortCall& c : port.calls) {
    if (!c.what.starts_with("levers")) continue;
    if (levers.empty() || levers.back() != c.what) levers.push_back(c.what);
    if (c.what == "levers 100 -100 -100" && reverseAt < 0) reverseAt = c.tick;
    if (c.what == "levers 0 0 0" && leversOffAt < 0) leversOffAt = c.tick;
  }
  EXPECT_EQ(levers, (std::vector<std::string>{"levers 100 -100 -100", "levers 0 0 0"}));
  EXPECT_EQ(reverseAt, touchDown - 1) << "in the tick of the ground report (watched after the tick)";
  EXPECT_GT(leversOffAt, touchDown);
  EXPECT_LT(leversOffAt, rolloutEnd + 1);
  const LiveAc& ac = live(id);
  EXPECT_EQ(ac.flightState, kParked);
  EXPECT_LT(gf_distance(where(ac), standAt), 2 * kMetre);
  EXPECT_NEAR(std::fabs(gf_normAngle(ac.heading - (kRunway - 90) * kDeg)) / kDeg, 0, 1.0) << "facing the stand";
  EXPECT_GT(ac.stream.back().tick - parked, 604800 * 100 - 100) << "it stands on a leg of a week";
  EXPECT_NE(log.text().find("V12     : DLH77    arrived at stand"), std::string::npos) << log.text();
  ASSERT_FALSE(standReports.empty());
  EXPECT_EQ(standReports.back().mode, 0) << "learned: arrived";
  EXPECT_EQ(ac.justLanded, 1);
  EXPECT_EQ(calls("lights").back().substr(0, 13), "lights 100001") << "parked: nav on, logo on";
}

}  // namespace
}  // namespace orv::test
