// The stand-in's UDP side on loopback: a recording played into sockets of the test, faults
// mixed in.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <charconv>
#include <chrono>
#include <optional>
#include <set>
#include <sstream>
#include <vector>

#include "fault_datagrams.h"
#include "loopback_fixture.h"
#include "player.h"
#include "recorder.h"
#include "timestamp_shift.h"

namespace orv::standin {
namespace {

using test::OwnedSocket;

// Everything that arrives until the socket stays quiet.
std::vector<std::string> drain(net::Socket s) {
  std::vector<std::string> datagrams;
  std::vector<char> buffer(20000);
  for (;;) {
    const int n = net::receiveFrom(s, buffer.data(), static_cast<int>(buffer.size()), nullptr);
    if (n < 0) return datagrams;
    datagrams.emplace_back(buffer.data(), static_cast<std::size_t>(n));
  }
}

double unixNow() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

const std::string kGood =
    "RTTFC,3951402,50.064487,8.684970,1600,-832,0,249.0,160.5,DLH401,B748,D-ABYJ,JFK,FRA,1718020801.53,X2,LH401,"
    "adsb_icao,1725,150,160,0.250,0.00,0,246.26,249.76,-832,none,A5";

TEST(FeedLoopback, PlayerSendsToBothPortsWithFreshTimesAndFaults) {
  OwnedSocket traffic(test::udpReceiver(500));
  OwnedSocket weather(test::udpReceiver(500));
  Recording recording;
  recording.epoch = 1718020800.0;
  recording.datagrams = {
      {0.10, kWeatherPort, R"({"QNH":1018})"},
      {0.20, kTrafficPort, kGood},
      {0.30, kTrafficPort, std::string(kGood).replace(kGood.find("DLH401"), 6, "DLH402")},
      {0.40, kTrafficPort, "garbage"},
  };
  PlayOptions options;
  options.trafficPort = net::localPort(traffic.s);
  options.weatherPort = net::localPort(weather.s);
  options.speed = 20;
  options.faults = FaultOptions{2, 3, 4};
  std::ostringstream out;
  Console console(out);
  std::atomic<bool> stop{false};
  PlayCounts counts;
  const double before = unixNow();
  play(recording, options, console, stop, counts);
  const double after = unixNow();

  const auto got = drain(traffic.s);
  // Sent in order: 2 (+1 repeat), 3 (+1 malformed), 4 "garbage" (+1 repeat, +1 oversize).
  ASSERT_EQ(got.size(), 7u) << out.str();
  ASSERT_TRUE(reportTimestamp(got[0]));
  const double age = 1718020800.0 + 0.20 - 1718020801.53;  // the report was from the future: -1.33 s
  EXPECT_GE(*reportTimestamp(got[0]), before - age - 0.01);
  EXPECT_LE(*reportTimestamp(got[0]), after - age + 0.01);
  EXPECT_EQ(got[0], shiftTimestamp(kGood, *reportTimestamp(got[0]) - 1718020801.53));
  EXPECT_EQ(got[1], got[0]);
  EXPECT_NE(got[2].find("DLH402"), std::string::npos);
  EXPECT_NE(got[3], got[2]);
  EXPECT_NE(got[3].find("DLH402"), std::string::npos) << "malformed lines are made from the line just sent";
  EXPECT_EQ(got[4], "garbage");
  EXPECT_EQ(got[5], "garbage");
  EXPECT_EQ(got[6].size(), kReaderBufferSize);

  const auto weatherGot = drain(weather.s);
  ASSERT_EQ(weatherGot.size(), 1u);
  EXPECT_EQ(weatherGot[0], R"({"QNH":1018})");
  EXPECT_EQ(counts.repeated + counts.malformed + counts.oversize, 4);
  EXPECT_EQ(targetPort(50000, options), 50000);
}

TEST(FeedLoopback, EachBrokenLineIsADifferentFault) {
  std::set<std::string> kinds;
  for (std::size_t n = 0; n < 10; ++n) kinds.insert(malformedTraffic(kGood, n));
  EXPECT_EQ(kinds.size(), 10u);
  EXPECT_FALSE(kinds.contains(kGood));
  EXPECT_EQ(malformedTraffic(kGood, 9), "RTTFC,3951402,50.064487,8.684970,1600,-832,0,249.0,160.5,DLH401");
  EXPECT_EQ(oversizeDatagram(std::string(20000, 'a')).size(), 16384u);
}

// The field of a traffic line, or nothing when the line has no such field.
std::optional<std::string> fieldOf(const std::string& line, std::size_t index) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < index; ++i) {
    begin = line.find(',', begin);
    if (begin == std::string::npos) return std::nullopt;
    ++begin;
  }
  return line.substr(begin, line.find(',', begin) - begin);
}

bool isNumber(const std::optional<std::string>& text) {
  double value = 0;
  return text && !text->empty() && std::from_chars(text->data(), text->data() + text->size(), value).ec == std::errc();
}

TEST(FeedLoopback, CutLinesLoseTheirTimeStampOrTheirClosingBraceButKeepWhatTellsThemApart) {
  const std::string weather = R"({"ICAO":"EDDF","QNH":1018,"METAR":"EDDF 101150Z"})";
  std::set<std::string> cuts;
  for (std::size_t n = 0; n < 200; ++n) {
    const std::string traffic = truncatedDatagram(kGood, false, n);
    EXPECT_TRUE(traffic.starts_with("RTTFC,3951402")) << traffic;
    EXPECT_FALSE(fieldOf(traffic, 14)) << traffic;
    const std::string json = truncatedDatagram(weather, true, n);
    EXPECT_TRUE(json.starts_with(R"({"ICAO":"EDDF")")) << json;
    EXPECT_LT(json.size(), weather.size() - 1);
    cuts.insert(traffic);
  }
  EXPECT_GT(cuts.size(), 50u) << "the cut moves";
  EXPECT_EQ(truncatedDatagram("x", false, 3), "x") << "nothing to cut";
  EXPECT_TRUE(malformedTrafficAlwaysLogged(0) && malformedTrafficAlwaysLogged(1) && malformedTrafficAlwaysLogged(8) &&
              malformedTrafficAlwaysLogged(9));
  EXPECT_FALSE(malformedTrafficAlwaysLogged(2) || malformedTrafficAlwaysLogged(5) || malformedTrafficAlwaysLogged(7));
}

TEST(FeedLoopback, AFloodNeverRepeatsAndNoneOfItCanBeRead) {
  std::set<std::string> seen;
  std::size_t weather = 0, overlong = 0;
  for (std::size_t n = 0; n < 4000; ++n) {
    const FloodDatagram d = floodDatagram(kGood, n);
    ASSERT_TRUE(seen.insert(d.text).second) << "the reader would drop a repeat: " << d.text.substr(0, 80);
    if (d.overlong) {
      ++overlong;
      EXPECT_GE(d.text.size(), kReaderBufferSize);
      EXPECT_LE(d.text.size(), 65507u) << "more than UDP carries";
    } else if (d.weather) {
      ++weather;
      EXPECT_EQ(d.text.find("\"QNH\":1018"), std::string::npos) << d.text;
    } else {
      EXPECT_TRUE(!isNumber(fieldOf(d.text, 14)) || !isNumber(fieldOf(d.text, 2))) << d.text;
    }
  }
  EXPECT_EQ(weather, 1500u);
  EXPECT_EQ(overlong, 500u);
}

TEST(FeedLoopback, HeldBackCutAndFloodedDatagramsArriveAndAreCounted) {
  OwnedSocket traffic(test::udpReceiver(500));
  OwnedSocket weather(test::udpReceiver(500));
  Recording recording;
  for (int i = 0; i < 4; ++i)
    recording.datagrams.push_back(
        {0.05 * i, kTrafficPort, std::string(kGood).replace(kGood.find("DLH401"), 6, fmt::format("DLH40{}", i))});
  PlayOptions options;
  options.trafficPort = net::localPort(traffic.s);
  options.weatherPort = net::localPort(weather.s);
  options.shiftTimestamps = false;
  options.faults.reorderEvery = 2;
  options.faults.truncateEvery = 2;
  options.faults.floodPerSecond = 400;
  std::ostringstream out;
  Console console(out);
  std::atomic<bool> stop{false};
  PlayCounts counts;
  play(recording, options, console, stop, counts);

  // The recording's own lines by callsign, and the cut one; the flood's lines carry other
  // hexids or an unreadable time stamp or position.
  std::vector<std::string> good;
  std::size_t cut = 0;
  for (const std::string& d : drain(traffic.s)) {
    if (!d.starts_with("RTTFC,3951402,")) continue;
    if (!fieldOf(d, 14))
      ++cut;
    else if (isNumber(fieldOf(d, 14)) && isNumber(fieldOf(d, 2)))
      good.push_back(*fieldOf(d, 9));
  }
  EXPECT_EQ(good, (std::vector<std::string>{"DLH400", "DLH402", "DLH401", "DLH403"}))
      << "the second held back behind the third; the fourth has none to go behind\n" << out.str();
  EXPECT_EQ(counts.reordered, 1);
  EXPECT_EQ(counts.truncated, 1);
  EXPECT_EQ(cut, 1u);
  EXPECT_GT(counts.flooded, 20) << "about 400 a second for 0.2 s";
  EXPECT_EQ(counts.trafficMustLog + counts.weatherMustLog + counts.overlongMustLog, counts.flooded + 1);
}

// How the recorder hears and writes datagrams is in the stand-in's run; here a port it can't have.
TEST(FeedLoopback, ARecorderPortThatIsTakenIsNamed) {
  OwnedSocket taken(test::udpReceiver(100));
  RecordOptions options;
  options.trafficPort = net::localPort(taken.s);
  options.weatherPort = 0;
  try {
    openRecorder(options);
    ADD_FAILURE() << "no error";
  } catch (const std::runtime_error& e) {
    EXPECT_EQ(std::string(e.what()),
              "cannot listen on UDP port " + std::to_string(options.trafficPort) + ": 10048 Address already in use");
  }
}

}  // namespace
}  // namespace orv::standin
