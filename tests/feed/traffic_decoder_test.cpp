#include "engine/traffic_queue.h"
#include "engine/engine_tick.h"
#include "feed/traffic_decoder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "engine/engine_tables.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/time_text.h"
#include "refdata/code_tables.h"
#include "report_line.h"
#include "test_support.h"

namespace orv {
namespace {

using test::reportLine;

class TrafficDecoding : public testing::Test {
 protected:
  void SetUp() override {
    gTrafficQueue.setEnabled(true);
    gf_setRange(40);
    AIRBORNE_ONLY.set(false);
    decoder.setUserPosition(50.0, 8.5);
    gv_tick = 100;
  }

  // The message a line became, or nothing when it was dropped.
  std::optional<TrafficMsg> decode(const std::string& line) {
    decoder.processLine(line);
    const std::size_t queued = gTrafficQueue.size();
    if (queued == 0) return std::nullopt;
    std::vector<TrafficMsg> all(queued);
    gTrafficQueue.take(queued, all.data());
    return std::move(all.back());
  }
  std::optional<TrafficMsg> decode(const std::map<int, std::string>& changes) { return decode(reportLine(changes)); }

  TrafficDecoder decoder;
  test::LogCapture log;
};

TEST_F(TrafficDecoding, AcceptedReportCarriesEveryField) {
  const auto m = decode(reportLine());
  ASSERT_TRUE(m);
  EXPECT_EQ(m->hexid, 4921232u);
  EXPECT_EQ(m->ident.cs, "DLH400");
  EXPECT_EQ(m->ident.reg, "D-AIZA");
  EXPECT_EQ(modelCode(m->ident.code.acType), "A320");
  EXPECT_EQ(m->ident.from.view(), "FRA");
  EXPECT_EQ(m->ident.to.view(), "JFK");
  EXPECT_DOUBLE_EQ(m->timestamp, 1790000000.5);
  EXPECT_DOUBLE_EQ(m->sample.vs, -64);
  EXPECT_DOUBLE_EQ(m->sample.gs, 450);
  EXPECT_DOUBLE_EQ(m->sample.track, 90.0);
  EXPECT_DOUBLE_EQ(m->sample.tas, 470);
  EXPECT_EQ(m->sample.airborne, 1);
  EXPECT_EQ(m->sample.precise, 1);
  EXPECT_NEAR(m->sample.trueHeading.value, 91.0 / 57.29577951308232, 1e-12);
  EXPECT_FALSE(m->sample.roll);
  EXPECT_EQ(m->sample.tick, 3100) << "shown 30 seconds after it arrived";
  EXPECT_EQ(decoder.queuedCount(), 1u);
  EXPECT_EQ(log.text().find("exception"), std::string::npos) << log.text();
}

TEST_F(TrafficDecoding, SilentDropsLeaveNoLogLine) {
  EXPECT_FALSE(decode({{9, "DLH VEH1"}})) << "a ground vehicle, whatever else the line holds";
  EXPECT_FALSE(decode({{2, "51.0"}})) << "60 nm from the user, beyond RANGE";
  EXPECT_FALSE(decode({{11, "D-AIZAAAAAAAA"}})) << "13 characters of registration";
  EXPECT_TRUE(decode({{11, "D-AIZAAAAAAA"}})) << "12 characters pass";
  for (const char* model : {"", "null", "A3200", "GLID", "GND", "TWR"}) EXPECT_FALSE(decode({{10, model}})) << model;
  for (const char* category : {"B1", "B2", "B4", "C1", "C2"}) EXPECT_FALSE(decode({{28, category}})) << category;
  EXPECT_TRUE(decode({{28, "B3"}}));
  EXPECT_FALSE(decode({{1, "10000"}}));
  EXPECT_TRUE(decode({{1, "10001"}}));
  EXPECT_FALSE(decode({{9, "TEST"}}));
  EXPECT_FALSE(decode({{9, "00000000"}}));
  const auto longer = decode({{9, "TESTER"}});
  ASSERT_TRUE(longer);
  EXPECT_EQ(longer->ident.cs, "TESTER");
  EXPECT_FALSE(decode({{9, "null"}, {11, "null"}})) << "neither callsign nor registration";
  EXPECT_EQ(log.text().find("exception"), std::string::npos) << log.text();
}

TEST_F(TrafficDecoding, UnreadableFieldsAreLoggedAndDropped) {
  const std::string badAltitude = reportLine({{4, "high"}});
  const std::pair<std::map<int, std::string>, std::string> cases[] = {
      {{{14, ""}}, "exception in processLineSub: timestamp:\n"},
      {{{14, "nan"}}, "exception in processLineSub: timestamp:nan\n"},
      {{{14, "inf"}}, "exception in processLineSub: timestamp:inf\n"},
      {{{14, "1e300"}}, "exception in processLineSub: timestamp:1e300\n"},
      {{{14, "-1"}}, "exception in processLineSub: timestamp:-1\n"},
      {{{2, "fifty"}}, "exception in processLineSub: lat:fifty\n"},
      {{{2, "0.00005"}, {3, "0.00005"}}, "exception in processLineSub: invalid lalo: 0.000050,0.000050\n"},
      {{{2, "90.5"}}, "exception in processLineSub: invalid lalo: 90.500000,8.500000\n"},
      {{{25, "361"}}, "exception in processLineSub: trueheading: 361.00\n"},
      {{{1, "4294967296"}}, "exception in processLineSub: hexid incorrect4294967296\n"},
      {{{1, "x12"}}, "exception in processLineSub: hexid incorrectx12\n"},
      {{{8, "+450"}}, "exception in processLineSub: gs:+450\n"},
      {{{7, "east"}}, "exception in processLineSub: track incorrect east\n"},
      {{{5, ""}}, "exception in processLineSub: vs:\n"},
      {{{12, "FR"}}, "exception in processLineSub: 'FR' FixedCode: invalid string (length/charset)\n"},
      {{{23, "level"}}, "exception in processLineSub: roll:level\n"},
      {{{20, "fast"}}, "exception in processLineSub: TAS incorrectfast\n"},
  };
  for (const auto& [changes, expected] : cases) {
    const std::size_t before = log.text().size();
    EXPECT_FALSE(decode(changes));
    EXPECT_EQ(log.text().substr(before), expected);
  }
  EXPECT_FALSE(decode(badAltitude));
  EXPECT_NE(log.text().find("altitude high incorrect, from: " + badAltitude + "\n"), std::string::npos);
  EXPECT_EQ(decoder.failedCount(), std::size(cases) + 1);
  EXPECT_EQ(gv_feedTimestamp.load(), 1790000000) << "a time stamp that is no time changes no clock";

  // At 0.0, 1.0 the position is valid: only the range test drops it.
  decoder.setUserPosition(0.0, 1.0);
  EXPECT_TRUE(decode({{2, "0.0"}, {3, "1.0"}}));
}

TEST_F(TrafficDecoding, AShortLineNeverReadsAnEarlierLinesFields) {
  ASSERT_TRUE(decode(reportLine()));
  EXPECT_FALSE(decode(std::string("0,4921232,50.0,8.5")));
  EXPECT_NE(log.text().find("exception in processLineSub: timestamp:\n"), std::string::npos);
}

TEST_F(TrafficDecoding, NullFieldsAndCallsignsWithAnAt) {
  const auto noRoute = decode({{12, "null"}, {13, "null"}, {11, "null"}});
  ASSERT_TRUE(noRoute);
  EXPECT_TRUE(noRoute->ident.from.empty());
  EXPECT_TRUE(noRoute->ident.to.empty());
  EXPECT_EQ(noRoute->ident.reg, "");

  const auto at = decode({{9, "@@@"}});
  ASSERT_TRUE(at);
  EXPECT_EQ(at->ident.cs, "");
  EXPECT_EQ(at->ident.reg, "D-AIZA");
  EXPECT_FALSE(decode({{9, "@@@"}, {11, "null"}}));

  const auto lower = decode({{12, "fra"}});
  ASSERT_TRUE(lower);
  EXPECT_EQ(lower->ident.from.view(), "FRA");
}

TEST_F(TrafficDecoding, AltitudeFollowsQnhAndGroundIsToldByHeightAndSpeed) {
  decoder.qnh = 1033;
  auto m = decode(reportLine());
  ASSERT_TRUE(m);
  EXPECT_DOUBLE_EQ(m->sample.alt, 30533.25);
  decoder.qnh = 1013;

  // On the ground only near the park airport; elsewhere such lines are dropped.
  EXPECT_FALSE(decode({{4, "0"}, {8, "250"}}));
  EXPECT_FALSE(decode({{4, "500"}, {8, "30"}}));
  decoder.setParkAirport(50.0, 8.5, 364.0);
  m = decode({{4, "500"}, {8, "30"}});
  ASSERT_TRUE(m);
  EXPECT_EQ(m->sample.airborne, 0) << "35 kt or less is on the ground anywhere";
  EXPECT_DOUBLE_EQ(m->sample.alt, 0);

  // Heights above the airport (364 ft) after the QNH correction of -6.75 ft.
  struct Case {
    const char* alt;
    const char* gs;
    bool airborne;
  } cases[] = {{"412.75", "120", false}, {"412.75", "121", true}, {"454.75", "80", false}, {"454.75", "81", true},
               {"478.75", "43", false},  {"478.75", "44", true},  {"479.75", "43", true},  {"300", "200", false}};
  for (const Case& c : cases) {
    m = decode({{4, c.alt}, {8, c.gs}});
    ASSERT_TRUE(m) << c.alt << " " << c.gs;
    EXPECT_EQ(m->sample.airborne, c.airborne ? 1 : 0) << c.alt << " ft at " << c.gs << " kt";
  }

  // A ground report more than 5 nm from the park airport is of no interest.
  decoder.setUserPosition(50.0, 8.0);
  EXPECT_FALSE(decode({{3, "8.0"}, {4, "0"}, {8, "10"}}));

  AIRBORNE_ONLY.set(true);
  EXPECT_FALSE(decode({{4, "520.75"}})) << "150 ft above the airport is not enough";
  EXPECT_TRUE(decode({{4, "521.75"}}));
}

TEST_F(TrafficDecoding, SpeedEstimatesHeadingsAndRoll) {
  const std::pair<const char*, double> tas[] = {{"2006.75", 180}, {"2007.25", 220}, {"5006.75", 220},
                                                {"10006.75", 250}, {"20006.75", 350}, {"20007.75", 430}};
  for (const auto& [alt, expected] : tas) {
    const auto m = decode({{4, alt}, {20, "-1"}});
    ASSERT_TRUE(m) << alt;
    EXPECT_DOUBLE_EQ(m->sample.tas, expected) << alt;
  }

  auto m = decode({{25, "0"}, {7, "0"}});
  ASSERT_TRUE(m);
  EXPECT_DOUBLE_EQ(m->sample.trueHeading.value, 2 * 3.14159265358979323846);
  EXPECT_DOUBLE_EQ(m->sample.track, 360.0) << "a true heading of 0 is north, not unknown";
  m = decode({{25, "-1"}, {7, ""}});
  ASSERT_TRUE(m);
  EXPECT_FALSE(m->sample.trueHeading);
  EXPECT_EQ(m->sample.precise, 0);
  EXPECT_DOUBLE_EQ(m->sample.track, 0);
  m = decode({{17, "mlat"}, {25, "unread"}});
  ASSERT_TRUE(m) << "the true heading is read only from adsb_icao reports";
  EXPECT_FALSE(m->sample.trueHeading);

  m = decode({{23, "5"}});
  ASSERT_TRUE(m);
  EXPECT_NEAR(m->sample.roll.value, -5 / 57.29577951308232, 1e-12) << "the simulator's sign";
  m = decode({{23, "0"}});
  ASSERT_TRUE(m);
  EXPECT_FALSE(m->sample.roll);
}

TEST_F(TrafficDecoding, NothingIsQueuedWhileTheFeedIsDisabledAndCallsignsAreCollected) {
  gTrafficQueue.setEnabled(false);
  EXPECT_FALSE(decode(reportLine()));
  EXPECT_EQ(decoder.queuedCount(), 0u);

  gCollectCallsigns = true;
  decode({{9, "BAW12"}});
  decode({{9, "EZY1"}, {2, "55.0"}});  // dropped by the range test, which comes first
  decode({{9, "X@Y"}});
  decode({{9, "TEST"}});  // collected before the callsign filter drops the line
  gCollectCallsigns = false;
  decode({{9, "AFR7"}});
  std::lock_guard lock(gLiveCallsignsMutex);
  EXPECT_EQ(gLiveCallsignsIncoming, (std::set<std::string>{"BAW12", "TEST"}));
  gLiveCallsignsIncoming.clear();
}

}  // namespace
}  // namespace orv
