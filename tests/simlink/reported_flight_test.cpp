// A reported flight end to end: reports into the engine as the feed hands them over, the engine
// step and the real SimClient thread against the stand-in simulator, one frame after each tick;
// what the aircraft did is read from the stand-in's trace.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/engine_step.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/traffic_intake.h"
#include "liveries/match_memory.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/valid_codes.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

constexpr double kRadPerDeg = 0.017453292519943295;
constexpr double kFeetPerNm = 6076.11549;
constexpr double kMetersPerNm = 1852.0;

// A cruise at 5000 ft east of Frankfurt, reported every 2 seconds for 40 seconds, then silence.
TEST_F(SimLinkTest, AReportedCruiseFliesItsTrackThirtySecondsBehindAndIsRemovedAfterItsReports) {
  connect();
  struct CodesBack {
    ~CodesBack() {
      lf_clearValidCodes();
      lf_clearModelCategories();
      gf_resetCodeTables();
    }
  } codesBack;
  validModels.insert("A320");
  largeModels.insert(modelIndex("A320"));
  const std::uint32_t hexid = 3950001;
  gLiveryCache.emplace(hexid, "Airbus A320 Lufthansa");
  const LatLon start{50.10, 8.40};
  const double trackDeg = 90, gs = 250, alt = 5000;
  const auto pointAt = [&](double seconds) {
    return gf_destination(start, trackDeg * kRadPerDeg, gs * seconds / 3600.0 * kFeetPerNm);
  };

  const auto file = work / "trace.csv";
  standin::startTrace(file, 1);
  const std::uint64_t firstFrame = standin::frame();
  gv_tick = 0;
  constexpr int kReports = 21;
  constexpr int kTicksPerFrame = 10;  // a frame rate of ten a second keeps the test short
  int next = 0;
  for (; gv_tick < 16000;) {
    if (next < kReports && next * 200 <= gv_tick) {
      TrafficMsg m;
      m.hexid = hexid;
      m.ident.cs = "DLH9TR";
      m.ident.code.acType = modelIndex("A320");
      m.timestamp = next * 2.0;
      const LatLon p = pointAt(next * 2.0);
      Sample& s = m.sample;
      s.lat = p.lat, s.lon = p.lon, s.alt = alt, s.gs = s.tas = gs, s.track = trackDeg;
      s.airborne = 1;
      s.tick = gv_tick + 3000;
      lf_decodeMsg(std::move(m));
      ++next;
    }
    lf_handleAddingStack();
    if (gv_tick % kTicksPerFrame == 0) frames(1);
  }
  standin::stopTrace();

  const std::vector<TraceRow> rows = traceRows(file, "DLH9TR");
  ASSERT_FALSE(rows.empty()) << "the aircraft was created";
  // The tick of a row: a frame follows every tenth tick, and a frame's line shows what the ticks
  // before it wrote. While it settles after its creation, no position is written.
  std::size_t onTrack = 0;
  double minAlong = 1e9, maxAlong = -1e9, worstCross = 0;
  for (const TraceRow& r : rows) {
    const double tick = static_cast<double>(r.frame - firstFrame - 1) * kTicksPerFrame;
    const double due = (tick - 3000) / 100.0;  // the report time shown at this tick
    if (due < 4 || due > 40) continue;         // settling, and the flight on after the reports
    ++onTrack;
    const LatLon want = pointAt(due);
    const double along = gf_distance(start, {r.lat, r.lon}) - gf_distance(start, want);
    const double cross = std::fabs(r.lat - want.lat) * 60.0;  // due east: latitude is across the track
    minAlong = std::min(minAlong, along * kMetersPerNm);
    maxAlong = std::max(maxAlong, along * kMetersPerNm);
    worstCross = std::max(worstCross, cross * kMetersPerNm);
    EXPECT_NEAR(r.alt, alt, 5) << "frame " << r.frame;
  }
  EXPECT_GT(onTrack, 300u) << "a position every frame from settling to the last report";
  // Its creation and settling take a few seconds, by which it starts late; it then flies each leg
  // at the reported speed, so the lag stays as it was, within the late limit of ten seconds.
  const double lagSeconds = -maxAlong / (gs * kMetersPerNm / 3600.0);
  EXPECT_GE(lagSeconds, 0.0);
  EXPECT_LE(lagSeconds, 10.0);
  EXPECT_LT(maxAlong - minAlong, 20.0) << "metres: the lag behind the report of 30 s earlier varies";
  EXPECT_LT(worstCross, 5.0) << "metres off the reported track";

  // After the reports it flies on straight for a while, then is removed.
  const double lastSeen = (static_cast<double>(rows.back().frame - firstFrame) * kTicksPerFrame - 3000) / 100.0;
  EXPECT_GT(lastSeen, 45.0);
  EXPECT_LT(lastSeen, 40.0 + 8 * 8 + 10) << "at most eight legs of eight seconds after the last report";
  EXPECT_GT(rows.back().lon, pointAt(40).lon) << "on along its track after the last report";
  EXPECT_FALSE(standin::objectByAtcId("DLH9TR")) << "removed from the simulator";
}

}  // namespace
}  // namespace orv::test
