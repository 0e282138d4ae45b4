// Whole ground sequences end to end: reports into the engine as the feed hands them over, the
// engine step and the real SimClient thread against the stand-in simulator, one frame after each
// tenth tick; what the aircraft did is read from the stand-in's trace, as a user would see it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "airportdata/stands.h"
#include "engine/ac_class.h"
#include "engine/engine_step.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/park_airport_site.h"
#include "engine/traffic_intake.h"
#include "foundation/parameters.h"
#include "liveries/match_memory.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/valid_codes.h"
#include "simlink_fixture.h"
#include "wingspan_fixture.h"

namespace orv::test {
namespace {

constexpr double kRadPerDeg = 0.017453292519943295;
constexpr double kFeetPerMetre = 1 / 0.3048;
constexpr double kMetresPerNm = 1852.0;
constexpr double kFieldFt = 364;    // the scenario's terrain, and the park airport's elevation
constexpr int kTicksPerFrame = 10;  // ten frames a second keep the runs short
constexpr double kFrameSeconds = 0.1;
// A model that takes negative throttle levers after touch-down: its reverse shows in the trace.
constexpr const char* kTitle = "FSLTL_A320_Lufthansa";
constexpr LatLon kSite{50.03, 8.50};  // 2.5 nm west of the user at Frankfurt

LatLon ahead(LatLon from, double bearingDeg, double metres) {
  return gf_destination(from, bearingDeg * kRadPerDeg, metres * kFeetPerMetre);
}
double metresBetween(LatLon a, LatLon b) { return gf_distance(a, b) * kMetresPerNm; }
LatLon where(const TraceRow& r) { return {r.lat, r.lon}; }
// The difference of two headings in degrees, -180 to 180.
double offDeg(double aDeg, double bDeg) { return gf_normAngle((aDeg - bDeg) * kRadPerDeg) / kRadPerDeg; }

struct Report {
  double t = 0;  // seconds of the feed; delivered at tick t × 100, due 30 s later
  LatLon p;
  double alt = 0, gs = 0, track = 0, vs = 0;  // on the ground the feed gives no altitude
  bool airborne = false;
};

// The speed over the ground in knots around row i, from the positions a second apart, so that
// a frame's share of ticks doesn't show as a change of speed.
double knotsAt(const std::vector<TraceRow>& rows, std::size_t i) {
  const std::size_t a = i >= 5 ? i - 5 : 0, b = std::min(i + 5, rows.size() - 1);
  if (b <= a) return 0;
  const double seconds = static_cast<double>(rows[b].frame - rows[a].frame) * kFrameSeconds;
  return gf_distance(where(rows[a]), where(rows[b])) * 3600 / seconds;
}

// The direction of motion in degrees around row i, over a second; none while standing.
std::optional<double> motionDegAt(const std::vector<TraceRow>& rows, std::size_t i) {
  const std::size_t a = i >= 5 ? i - 5 : 0, b = std::min(i + 5, rows.size() - 1);
  if (metresBetween(where(rows[a]), where(rows[b])) < 0.5) return std::nullopt;
  return gf_bearing(where(rows[a]), where(rows[b])) / kRadPerDeg;
}

class GroundSequence : public SimLinkTest {
 protected:
  void SetUp() override {
    SimLinkTest::SetUp();
    validModels.insert("A320");
    largeModels.insert(modelIndex("A320"));
    fillTestWingspans({{"A320", 35.8}});
    gParkAirportSite.chosen = true;
    gParkAirportSite.lat = kSite.lat;
    gParkAirportSite.lon = kSite.lon;
    gParkAirportSite.elevationFt = kFieldFt;
    gStands.clear();
  }
  void TearDown() override {
    SimLinkTest::TearDown();
    gLiveryCache.erase(hexid_);
    gStands.clear();
    gParkAirportSite = ParkAirportSite{};
    clearTestWingspans();
    lf_clearValidCodes();
    lf_clearModelCategories();
    gf_resetCodeTables();
  }

  // A stand of the park airport that takes an A320; the engine has to find it by itself.
  static void addStand(const std::string& id, LatLon at, double headingDeg) {
    Stand s;
    s.id = id;
    s.latitude = at.lat;
    s.longitude = at.lon;
    s.heading = headingDeg * kRadPerDeg;
    s.radius = 25 / kMetresPerNm;
    s.number = static_cast<std::uint32_t>(gStands.size() + 1);
    gStands.push_back(s);
  }

  // Steps the engine until `untilTick`, delivering each report at its time, with a frame of the
  // simulator after every tenth tick; returns the trace rows of the aircraft.
  std::vector<TraceRow> run(std::uint32_t hexid, const std::string& cs, const std::vector<Report>& reports,
                            std::int32_t untilTick) {
    connect(scenarioJson(R"("acceptAnyTitle": true)"));
    hexid_ = hexid;
    gLiveryCache.emplace(hexid, kTitle);
    const auto file = work / "trace.csv";
    standin::startTrace(file, 1);
    firstFrame_ = standin::frame();
    gv_tick = 0;
    std::size_t next = 0;
    while (gv_tick < untilTick) {
      while (next < reports.size() && reports[next].t * 100 <= gv_tick) {
        const Report& r = reports[next++];
        TrafficMsg m;
        m.hexid = hexid;
        m.ident.cs = cs;
        m.ident.code.acType = modelIndex("A320");
        m.timestamp = r.t;
        Sample& s = m.sample;
        s.lat = r.p.lat, s.lon = r.p.lon, s.alt = r.alt, s.gs = s.tas = r.gs, s.track = r.track, s.vs = r.vs;
        s.airborne = r.airborne ? 1 : 0;
        s.tick = gv_tick + 3000;
        lf_decodeMsg(std::move(m));
      }
      lf_handleAddingStack();
      if (gv_tick % kTicksPerFrame == 0) frames(1);
    }
    standin::stopTrace();
    return traceRows(file, cs);
  }
  // The tick after which a row's frame came: a frame follows every tenth tick.
  std::int64_t tickOf(const TraceRow& r) const {
    return (static_cast<std::int64_t>(r.frame) - static_cast<std::int64_t>(firstFrame_) - 1) * kTicksPerFrame;
  }

 private:
  std::uint32_t hexid_ = 0;
  std::uint64_t firstFrame_ = 0;
};

// Never below the ground: the altitude is never under the terrain, and the wheels (the height of
// the centre of gravity over the ground when standing, `cgAgl`) sink at most a foot. An aircraft
// is created at the reported altitude, which the feed gives as 0 on the ground, and gets no
// position while it settles: the check starts with the first position after that.
void expectAboveGround(const std::vector<TraceRow>& rows, double cgAgl) {
  constexpr std::uint64_t kSettleFrames = 25;  // 200 ticks, and the frames of the creation
  double lowestAgl = 1e9;
  std::uint64_t lowestFrame = 0;
  for (const TraceRow& r : rows) {
    if (r.frame < rows.front().frame + kSettleFrames) continue;
    EXPECT_GE(r.alt, kFieldFt - 0.5) << "frame " << r.frame;
    EXPECT_GE(r.agl, -1.0) << "frame " << r.frame;
    if (r.agl < lowestAgl) lowestAgl = r.agl, lowestFrame = r.frame;
  }
  EXPECT_GE(lowestAgl, cgAgl - 1.0) << "the wheels sank into the ground at frame " << lowestFrame;
}

constexpr double kRunway = 70, kTaxiTrack = kRunway - 90, kTaxiKnots = 15;
constexpr double kLastRolloutKnots = 26;
// The stand lies at an angle to the taxi line: the aircraft has to turn onto it.
constexpr double kStandHeading = kTaxiTrack + 30;

// A landing: 3 nm final at 140 knots to the threshold, the roll-out along the runway slowing to
// 26 knots, a turn off to the left, a taxi at 15 knots and a stop 10 m short of a stand and 4 m
// to its side: where the feed's noise leaves a real aircraft that stops at its stand.
// Where the final starts; the runway's centre line runs on from it.
LatLon finalStart() { return ahead(kSite, kRunway + 180, 3 * kMetresPerNm); }

std::vector<Report> landingReports(LatLon& standAt) {
  const LatLon start = finalStart();
  std::vector<Report> reports;
  double t = 0;
  for (; t <= 76; t += 2) {
    const double nm = 140 * t / 3600;
    const double height = std::max(950.0 * (1 - nm / 3), 0.0) + (nm < 3 ? 1 : 0);
    reports.push_back({t, ahead(start, kRunway, nm * kMetresPerNm), height > 0 ? kFieldFt + height : 0, 140, kRunway,
                       -740, height > 0});
  }
  LatLon p = reports.back().p;
  for (double gs = 130; gs >= kLastRolloutKnots; gs -= 8, t += 2) {
    p = ahead(p, kRunway, gs * 2 / 3600 * kMetresPerNm);
    reports.push_back({t, p, 0, gs, kRunway, 0, false});
  }
  for (int i = 0; i < 15; ++i, t += 2) {
    p = ahead(p, kTaxiTrack, kTaxiKnots * 2 / 3600 * kMetresPerNm);
    reports.push_back({t, p, 0, kTaxiKnots, kTaxiTrack, 0, false});
  }
  for (int i = 0; i < 5; ++i, t += 2) reports.push_back({t, p, 0, 0, kTaxiTrack, 0, false});
  standAt = ahead(ahead(p, kTaxiTrack, 10), kTaxiTrack + 90, 4);
  return reports;
}

TEST_F(GroundSequence, ALandingFlaresTouchesDownBrakesWithSpoilersAndReverseTaxisAndEndsOnTheStand) {
  LatLon standAt;
  const std::vector<Report> reports = landingReports(standAt);
  addStand("V12", standAt, kStandHeading);

  const std::vector<TraceRow> rows = run(3960001, "DLH7GS", reports, 20000);
  ASSERT_GT(rows.size(), 1000u) << "the aircraft was created and shown";
  expectAboveGround(rows, rows.back().agl);

  // The touch-down: the first frame on the ground after frames in the air.
  const auto td = std::find_if(rows.begin(), rows.end(), [](const TraceRow& r) { return r.onGround; });
  ASSERT_NE(td, rows.end());
  const std::size_t touch = static_cast<std::size_t>(td - rows.begin());
  ASSERT_GT(touch, 300u) << "a final of some 30 seconds shown in the air";
  const double cg = rows.back().agl;  // the height of the centre of gravity when standing
  // The flare: from 30 ft over the wheels the nose comes up.
  const auto at30 = std::find_if(rows.begin(), td, [&](const TraceRow& r) { return r.agl - cg <= 30; });
  ASSERT_NE(at30, td);
  const double flarePitch =
      std::min_element(at30, td + 1, [](const TraceRow& a, const TraceRow& b) { return a.pitch < b.pitch; })->pitch;
  EXPECT_LE(flarePitch, at30->pitch - 1.5) << "degrees: the nose rises in the flare (negative is up)";
  EXPECT_LE(td->pitch, -2.5) << "touching down nose up";
  for (auto r = rows.begin(); r != td; ++r) {
    EXPECT_EQ(r->spoilers, 0) << "frame " << r->frame;
    EXPECT_GE(r->throttle, 0) << "frame " << r->frame;
  }
  // Spoilers and reverse at touch-down, within the next second.
  const auto spoilers = std::find_if(td, rows.end(), [](const TraceRow& r) { return r.spoilers > 0; });
  const auto reverse = std::find_if(td, rows.end(), [](const TraceRow& r) { return r.throttle < 0; });
  ASSERT_NE(spoilers, rows.end());
  ASSERT_NE(reverse, rows.end());
  EXPECT_LE(spoilers->frame - td->frame, 10u);
  EXPECT_LE(reverse->frame - td->frame, 10u);
  EXPECT_EQ(reverse->throttle, -100);
  for (auto r = td; r != rows.end(); ++r) EXPECT_TRUE(r->onGround) << "bounced at frame " << r->frame;

  // The roll-out slows down; levers and spoilers are back before the aircraft turns off.
  const double afterTouch = knotsAt(rows, touch + 10), tenLater = knotsAt(rows, touch + 110);
  EXPECT_GT(afterTouch, 110);
  EXPECT_LT(tenLater, afterTouch - 30) << "knots ten seconds after the touch-down";
  const double touchHeading = td->heading;
  const auto turnedOff =
      std::find_if(td, rows.end(), [&](const TraceRow& r) { return std::fabs(offDeg(r.heading, touchHeading)) >= 15; });
  ASSERT_NE(turnedOff, rows.end()) << "the aircraft turns off the runway";
  EXPECT_EQ((turnedOff - 1)->throttle, 0);
  EXPECT_EQ((turnedOff - 1)->spoilers, 0);
  // Until it starts to turn off, it rolls along the centre line.
  const LatLon start = finalStart();
  for (auto r = td; r != turnedOff && std::fabs(offDeg(r->heading, touchHeading)) < 1; ++r) {
    const double across =
        metresBetween(start, where(*r)) * std::sin(gf_bearing(start, where(*r)) - kRunway * kRadPerDeg);
    EXPECT_LT(std::fabs(across), 3.0) << "metres off the runway's centre line, frame " << r->frame;
  }
  for (std::size_t i = touch + 1; i < rows.size(); ++i) {
    EXPECT_LE(knotsAt(rows, i), knotsAt(rows, touch) + 1)
        << "a landing aircraft doesn't speed up, frame " << rows[i].frame;
  }
  // On the taxiway it taxis at the reported speed; the last metres onto the stand at the taxi
  // speed of its class.
  const auto onTaxiway = std::find_if(turnedOff, rows.end(),
                                      [](const TraceRow& r) { return std::fabs(offDeg(r.heading, kTaxiTrack)) < 3; });
  ASSERT_NE(onTaxiway, rows.end());
  const double classTaxi = gf_classTable(kLarge).taxiSpeed;
  for (std::size_t i = static_cast<std::size_t>(onTaxiway - rows.begin()); i < rows.size(); ++i) {
    const double knots = knotsAt(rows, i);
    EXPECT_LE(knots, kTaxiKnots * 1.1) << "frame " << rows[i].frame;
    if (metresBetween(where(rows[i]), standAt) < 8) {
      EXPECT_LE(knots, classTaxi * 1.1) << "onto the stand, frame " << rows[i].frame;
    }
  }
  // On the stand, facing along it, standing still.
  const TraceRow& last = rows.back();
  EXPECT_LT(metresBetween(where(last), standAt), 2.0);
  EXPECT_NEAR(offDeg(last.heading, kStandHeading), 0, 2.0);
  EXPECT_LT(knotsAt(rows, rows.size() - 1), 0.1);
  EXPECT_EQ(last.throttle, 0);
  EXPECT_EQ(last.flaps, 0) << "parked: flaps up";
  EXPECT_FALSE(last.enginesOn) << "parked: engines off";
}

constexpr double kDepartureRunway = 0;

// A departure: reported standing at a stand facing north for 50 seconds, pushed back tail first
// with the nose swinging right, a stop, a taxi east at 15 knots to the runway, a left turn onto
// it, the take-off roll accelerating at 4.5 knots a second, lift-off past 148 knots and a climb
// at 2000 ft a minute.
std::vector<Report> departureReports(LatLon standAt, LatLon& runwayEntry) {
  std::vector<Report> reports;
  double t = 0;
  for (; t <= 50; t += 2) reports.push_back({t, standAt, 0, 0, 0, 0, false});
  LatLon p = standAt;
  for (int i = 1; i <= 15; ++i, t += 2) {
    p = ahead(standAt, 180, 3.0 * i);  // some 3 knots backwards
    reports.push_back({t, p, 0, 3, i * 3.0 <= 20 ? 0.0 : 75.0, 0, false});
  }
  for (int i = 0; i < 5; ++i, t += 2) reports.push_back({t, p, 0, 0, 90, 0, false});
  for (int i = 0; i < 20; ++i, t += 2) {
    p = ahead(p, 90, kTaxiKnots * 2 / 3600 * kMetresPerNm);
    reports.push_back({t, p, 0, kTaxiKnots, 90, 0, false});
  }
  runwayEntry = p;
  const double roll0 = t;
  for (double s = 2; s <= 60; s += 2) {
    const double gs = s <= 33 ? 4.5 * s : 155;
    const double nm = s <= 33 ? 4.5 * s * s / 2 / 3600 : (4.5 * 33 * 33 / 2 + 155 * (s - 33)) / 3600;
    const double climb = s <= 33 ? 0 : 2000 * (s - 33) / 60;
    reports.push_back({roll0 + s, ahead(runwayEntry, kDepartureRunway, nm * kMetresPerNm),
                       climb > 0 ? kFieldFt + climb : 0, gs, kDepartureRunway, climb > 0 ? 2000.0 : 0.0, climb > 0});
  }
  return reports;
}

// The frames of a pushback: from leaving the stand to the first stop after it.
std::pair<std::size_t, std::size_t> pushbackFrames(const std::vector<TraceRow>& rows, LatLon standAt) {
  std::size_t i = 0;
  while (i < rows.size() && metresBetween(where(rows[i]), standAt) < 1.0) ++i;
  const std::size_t start = i;
  while (i < rows.size() && knotsAt(rows, i) >= 0.2) ++i;
  return {start, i};
}

TEST_F(GroundSequence, ADepartureStandsPushesBackTailFirstTaxisAndRotatesOnlyAtTakeOffSpeedBeforeLiftOff) {
  const LatLon standAt = ahead(kSite, 270, 300);
  addStand("A7", standAt, 0);
  LatLon runwayEntry;
  const std::vector<Report> reports = departureReports(standAt, runwayEntry);
  const std::vector<TraceRow> rows = run(3960002, "DLH8GS", reports, 26000);
  ASSERT_GT(rows.size(), 1000u) << "the aircraft was created and shown";
  // Shown standing on the stand, facing along it, once settled after its creation.
  const TraceRow& settled = rows[30];
  const double cg = settled.agl, staticPitch = settled.pitch;
  expectAboveGround(rows, cg);
  EXPECT_LT(metresBetween(where(settled), standAt), 2.0);
  EXPECT_NEAR(offDeg(settled.heading, 0), 0, 2.0);
  EXPECT_TRUE(settled.onGround);

  // The pushback: tail first, along the stand's axis at the taxi speed of its class, ending
  // behind the stand with the nose swung round.
  const double classTaxi = gf_classTable(kLarge).taxiSpeed;
  const auto [pushStart, pushEnd] = pushbackFrames(rows, standAt);
  ASSERT_LT(pushEnd, rows.size()) << "the aircraft leaves the stand and the pushback ends";
  for (std::size_t k = pushStart; k < pushEnd; ++k) {
    const double knots = knotsAt(rows, k);
    // The first 30 m go straight back along the stand's axis; the swing of the nose follows.
    if (metresBetween(where(rows[k]), standAt) < 29) {
      EXPECT_LE(knots, classTaxi * 1.1) << "pushing back, frame " << rows[k].frame;
    }
    const auto motion = motionDegAt(rows, k);
    if (knots < 1 || !motion) continue;
    EXPECT_GE(std::fabs(offDeg(rows[k].heading, *motion)), 150) << "tail first, frame " << rows[k].frame;
  }
  std::size_t i = pushEnd;
  EXPECT_TRUE(rows[pushEnd].enginesOn) << "the engines start during the pushback";
  EXPECT_GT(pushEnd - pushStart, 100u) << "frames of the pushback";
  const double back = metresBetween(where(rows[pushEnd]), standAt);
  EXPECT_GT(back, 40) << "metres off the stand";
  EXPECT_NEAR(offDeg(gf_bearing(standAt, where(rows[pushEnd])) / kRadPerDeg, 180), 0, 30) << "behind the stand";
  EXPECT_GT(offDeg(rows[pushEnd].heading, 0), 45) << "the nose swung right, as reported";

  // The taxi to the runway at the reported speed, with the nose at its static pitch.
  for (; i < rows.size() && metresBetween(where(rows[i]), runwayEntry) > 20; ++i) {
    EXPECT_LE(knotsAt(rows, i), kTaxiKnots * 1.1) << "taxiing, frame " << rows[i].frame;
    EXPECT_NEAR(rows[i].pitch, staticPitch, 0.5) << "frame " << rows[i].frame;
    EXPECT_TRUE(rows[i].onGround);
  }
  ASSERT_LT(i, rows.size()) << "the aircraft reaches the runway";

  // The nose comes up only at the take-off speed, and before the wheels leave the ground.
  const auto rot = std::find_if(rows.begin() + static_cast<std::ptrdiff_t>(i), rows.end(),
                                [&](const TraceRow& r) { return r.pitch < staticPitch - 0.5; });
  ASSERT_NE(rot, rows.end()) << "the aircraft rotates";
  const std::size_t rotation = static_cast<std::size_t>(rot - rows.begin());
  const double takeOffSpeed = gf_classTable(kLarge).takeOffSpeed;
  EXPECT_GE(knotsAt(rows, rotation), 0.9 * takeOffSpeed) << "knots at rotation, frame " << rot->frame;
  EXPECT_TRUE(rot->onGround) << "rotating on the ground";
  const auto off = std::find_if(rot, rows.end(), [](const TraceRow& r) { return !r.onGround; });
  ASSERT_NE(off, rows.end()) << "the aircraft lifts off";
  EXPECT_GE(off->frame - rot->frame, 5u) << "frames from rotation to lift-off";
  EXPECT_LE(std::min_element(rot, off, [](const TraceRow& a, const TraceRow& b) { return a.pitch < b.pitch; })->pitch,
            staticPitch - 3)
      << "degrees: the nose is up before lift-off";
  EXPECT_GE(knotsAt(rows, static_cast<std::size_t>(off - rows.begin())), takeOffSpeed);
  // And climbs away along its reports.
  const auto lastDue = static_cast<std::int64_t>(reports.back().t * 100) + 3000;
  for (auto r = off + 1; r != rows.end(); ++r) {
    EXPECT_FALSE(r->onGround) << "frame " << r->frame;
    if (tickOf(*r) <= lastDue) {
      EXPECT_GE(r->alt, (r - 1)->alt - 0.5) << "frame " << r->frame;
    }
  }
  EXPECT_GT(rows.back().alt, kFieldFt + 300);
  EXPECT_FALSE(rows.back().gearDown) << "gear up in the climb";
}

// With STRAIGHT_PBS_ONLY the same departure is pushed straight back along the stand's axis, the
// nose kept to the stand, though the reports swing it, to two and a half radii out (62.5 m).
TEST_F(GroundSequence, AStraightPushbackEndsOnTheStandsAxisTwoAndAHalfRadiiOut) {
  STRAIGHT_PBS_ONLY.value = true;
  const LatLon standAt = ahead(kSite, 270, 300);
  addStand("A7", standAt, 0);
  LatLon runwayEntry;
  const std::vector<TraceRow> rows = run(3960005, "DLH5GS", departureReports(standAt, runwayEntry), 12500);
  STRAIGHT_PBS_ONLY.value = false;
  const auto [pushStart, pushEnd] = pushbackFrames(rows, standAt);
  ASSERT_LT(pushEnd, rows.size()) << "the aircraft leaves the stand and the pushback ends";
  double farthest = 0;
  for (std::size_t k = pushStart; k <= pushEnd; ++k) {
    farthest = std::max(farthest, metresBetween(where(rows[k]), standAt));
    EXPECT_NEAR(offDeg(rows[k].heading, 0), 0, 1.0) << "the nose to the stand, frame " << rows[k].frame;
  }
  const LatLon end = ahead(standAt, 180, 62.5);
  EXPECT_LT(metresBetween(where(rows[pushEnd]), end), 1.5) << "on the stand's axis, 2.5 radii out";
  EXPECT_LT(farthest, 64.0);
}

}  // namespace
}  // namespace orv::test
