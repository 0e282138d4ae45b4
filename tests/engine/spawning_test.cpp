// How reports become aircraft: the filters of the stream, the gates of the buffer, the
// removal of an aircraft that has fallen behind, and the respawn for a new livery.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "flight_fixture.h"
#include "foundation/parameters.h"
#include "liveries/livery_indexes.h"
#include "liveries/match_memory.h"
#include "refdata/code_tables.h"
#include "refdata/registrations.h"

namespace orv::test {
namespace {

Report at(double t, double lat, double gs, double alt = 5000) { return {t, lat, 8.0, alt, gs, 0, 0, std::nullopt}; }

TEST_F(EngineFlight, ReportsTooSoonOrWithNoisySpeedsAreIgnored) {
  deliver(80001, "DLH1", "A320", at(0, 50.0, 6));
  deliver(80001, "DLH1", "A320", at(0.5, 50.001, 6));
  EXPECT_EQ(record(80001)->stream.size(), 1u) << "0.5 seconds after the last";
  deliver(80001, "DLH1", "A320", at(3, 50.002, 60));
  EXPECT_EQ(record(80001)->stream.size(), 1u) << "6 to 60 knots is noise";

  deliver(80002, "DLH2", "A320", at(0, 51.0, 5));
  deliver(80002, "DLH2", "A320", at(3, 51.002, 60));
  EXPECT_EQ(record(80002)->stream.size(), 2u) << "5 to 60 knots is taken";
  deliver(80003, "DLH3", "A320", at(0, 52.0, 5));
  deliver(80003, "DLH3", "A320", at(3, 52.002, 80));
  EXPECT_EQ(record(80003)->stream.size(), 1u) << "5 to 80 knots is not";

  deliver(80004, "DLH4", "A320", at(0, 53.0, 450, 35000));
  deliver(80004, "DLH4", "A320", at(1.5, 53.003, 450, 35000));
  EXPECT_EQ(record(80004)->stream.size(), 1u) << "straight on within 450 m: not wanted yet";
}

TEST_F(EngineFlight, OneAircraftUnderASecondAddressIsIgnored) {
  deliver(80010, "DLH10", "A320", at(0, 50.0, 250));
  deliver(80011, "DLH10", "A320", at(0, 50.0, 250));
  EXPECT_EQ(record(80011), nullptr);
  deliver(80012, "DLH10", "B744", at(0, 50.0, 250));
  EXPECT_NE(record(80012), nullptr) << "another type is another aircraft";
}

TEST_F(EngineFlight, ASingleReportIsNotShownAndAnInvalidModelNeverBuffered) {
  deliver(80020, "DLH20", "A320", at(0, 50.0, 250));
  deliver(80021, "DLH21", "XXXX", at(0, 50.0, 250));
  EXPECT_EQ(record(80021), nullptr);
  steps(3001);
  EXPECT_EQ(record(80020), nullptr) << "one report within 30 seconds";
  EXPECT_TRUE(port.creations.empty());
}

TEST_F(EngineFlight, ALongCallsignTakesTheRegistrationAndWithoutOneTheAircraftGoes) {
  const auto reports = straightReports(50.0, 8.0, 5000, 250, 0, 5, 3);
  for (const Report& r : reports) deliver(80030, "ABCDEFGHI", "A320", r, "D-AIZA");
  for (const Report& r : reports) deliver(80031, "BCDEFGHIJ", "A320", r);
  steps(3100);
  ASSERT_EQ(port.creations.size(), 1u);
  EXPECT_EQ(port.creations[0].callsign, "D-AIZA");
  EXPECT_EQ(record(80031), nullptr);
}

TEST_F(EngineFlight, TheLiveLimitReachedACloserAircraftPushesAFarOneOut) {
  const std::int32_t saved = MAX_LIVE_SEL.value;
  MAX_LIVE_SEL.value = 10;
  // Ten aircraft 20 to 29 nm north of the user, then one at 5 nm and one at 40 nm.
  std::uint32_t hexid = 80100;
  for (int i = 0; i < 10; ++i)
    for (const Report& r : straightReports(50.0 + (20 + i) / 60.0, 8.0, 5000, 250, 0, 5, 3))
      deliver(hexid + i, fmt::format("DLH{}", 100 + i), "A320", r);
  steps(3800);
  int active = 0;
  for (const LiveAc& ac : gLiveAc) active += ac.simState == kActive;
  ASSERT_EQ(active, 10);
  for (const Report& r : straightReports(50.0 + 5 / 60.0, 8.0, 5000, 250, 0, 5, 3)) deliver(80200, "DLH200", "A320", r);
  for (const Report& r : straightReports(50.0 + 40 / 60.0, 8.0, 5000, 250, 0, 5, 3)) deliver(80201, "DLH201", "A320", r);
  steps(3100);
  MAX_LIVE_SEL.value = saved;
  EXPECT_EQ(record(80201), nullptr) << "farther than all: erased";
  ASSERT_NE(record(80200), nullptr);
  EXPECT_NE(record(80200)->simState, kBuffer);
  EXPECT_EQ(port.removals.size(), 1u) << "one far aircraft made way";
}

TEST_F(EngineFlight, AnAircraftAtTheEdgeOfTheRangeWaitsUntilItsReportsComeInside) {
  // Inbound from 40.2 nm north of the user at 300 knots: 1 nm every 12 seconds. The simulator
  // reports new objects only within the range, so one created beyond 39.5 nm would hang unseen.
  fly(80050, "DLH50", "A320", straightReports(50.0 + 40.2 / 60.0, 8.0, 5000, 300, 180, 3, 20), 3000 + 600);
  EXPECT_TRUE(port.creations.empty()) << "the first 6 seconds of reports lie beyond 39.5 nm";
  ASSERT_NE(record(80050), nullptr);
  EXPECT_EQ(record(80050)->simState, kBuffer);
  steps(1000);
  ASSERT_EQ(port.creations.size(), 1u);
  EXPECT_LT((port.creations[0].lat - 50.0) * 60.0, 39.5);
}

TEST_F(EngineFlight, AStreamOfMoreThanTwoHundredSamplesIsRemovedAsFallenBehind) {
  fly(80040, "DLH40", "A320", straightReports(50.0, 8.0, 5000, 100, 0, 5, 8), 3400);
  ASSERT_EQ(record(80040)->simState, kActive);
  // A backlog of the feed arrives at once.
  for (int i = 0; i < 205; ++i) deliver(80040, "DLH40", "A320", at(100 + 2.0 * i, 50.1 + i * 0.001, 100));
  EXPECT_EQ(record(80040)->simState, kRemovingFromSim);
  EXPECT_LE(record(80040)->stream.size(), 202u);
  steps(20);
  EXPECT_EQ(record(80040), nullptr);
}

TEST_F(EngineFlight, ALiveryChangeRespawnsTheAircraftAtItsPresentPosition) {
  static const CatalogueTitle kNewTitle{"Airbus A320 Eurowings D-ABCD", false, "D-ABCD"};
  // The catalogue stands for the whole run: the respawn matches the new registration in it.
  regcodeToTitle.emplace("D-ABCD", &kNewTitle);
  const auto reports = straightReports(50.0, 8.0, 5000, 250, 0, 5, 30);
  fly(80050, "EWG12", "A320", reports, 4000);
  const LiveAc* ac = record(80050);
  ASSERT_EQ(ac->simState, kActive);
  const double lat = ac->lat, lon = ac->lon;
  // The next report of the track, 5 s after the last: one sooner would lie within 450 m of a
  // straight flight and never reach the identity update.
  deliver(80050, "EWG12", "A320", reports[8], "D-ABCD");
  ac = record(80050);
  EXPECT_EQ(ac->simState, kLiveryRespawn);
  EXPECT_NE(log.text().find("respawns"), std::string::npos);
  EXPECT_EQ(ac->flightState, kBirth);
  EXPECT_EQ(ac->stream.front().lat, lat);
  EXPECT_EQ(ac->stream.front().lon, lon);
  EXPECT_EQ(ac->stream.front().tick, gv_tick + 1);
  const std::size_t created = port.creations.size();
  steps(120);
  ASSERT_EQ(port.removals.size(), 1u);
  ASSERT_EQ(port.creations.size(), created + 1) << "created again";
  EXPECT_NEAR(port.creations.back().lat, lat, 1e-9);
  EXPECT_EQ(port.creations.back().title, "Airbus A320 Eurowings D-ABCD");
}

}  // namespace
}  // namespace orv::test
