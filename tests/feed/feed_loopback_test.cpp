// The feed side as RealTraffic drives it: a recorded stretch of Frankfurt traffic and weather
// through both reader threads into the decoding, the status marks, and the readers' end.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "engine/traffic_queue.h"
#include "feed/feed_status.h"
#include "feed_fixture.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"

namespace orv {
namespace {

using FeedLoopback = test::FeedTest;

TEST_F(FeedLoopback, ARecordingReachesTheDecodingThroughBothReaders) {
  // RealTraffic on this computer, connected; the link itself is the RealTraffic link's tests' part.
  gv_rtOnThisPc = true;
  gFeedStatus.rtConnected.store(true);
  gf_setRange(40);
  gTrafficDecoder.setUserPosition(50.0333, 8.5706);
  gTrafficQueue.setEnabled(true);
  gTrafficReader.boundPort = gQnhReader.boundPort = 0;
  lf_startQnhReader(0);
  lf_startTrafficReader(true, 0);
  ASSERT_TRUE(test::eventually([] { return gTrafficReader.boundPort != 0 && gQnhReader.boundPort != 0; }));

  // "<seconds> <port> <datagram>" a line, sent in steps that the readers catch up with.
  std::ifstream recording(std::filesystem::path(__FILE__).parent_path().parent_path() / "data/recordings/eddf_midday.txt");
  std::int32_t traffic = 0, weather = 0;
  for (std::string line; std::getline(recording, line);) {
    if (line.empty() || line[0] == '#') continue;
    const std::size_t port = line.find(' ') + 1, datagram = line.find(' ', port) + 1;
    const bool isTraffic = line.compare(port, 6, "49005 ") == 0;
    ASSERT_TRUE(test::sendDatagram(isTraffic ? gTrafficReader.boundPort : gQnhReader.boundPort, line.substr(datagram)));
    if (!isTraffic) {
      ++weather;
    } else if (++traffic % 50 == 0) {
      ASSERT_TRUE(test::eventually([&] { return gTrafficReader.count.load() == traffic; }));
    }
  }
  ASSERT_TRUE(test::eventually([&] { return gTrafficReader.count.load() == traffic && gQnhReader.count.load() == weather; }));
  EXPECT_EQ(traffic, 701);
  EXPECT_GT(gTrafficQueue.size(), 500u);
  EXPECT_LT(gTrafficQueue.size(), 701u) << "vehicles and aircraft on the ground are dropped";
  EXPECT_EQ(gv_feedTimestamp.load() / 1000, 1718020) << "a time of the recording";
  EXPECT_EQ(gTrafficDecoder.qnh.load(), 1017) << "the last weather line";

  // Nothing since the last look: quiet; the next weather value wakes its mark.
  lf_feedStatus();
  EXPECT_FALSE(lf_feedDataLost());
  lf_feedStatus();
  EXPECT_EQ(gFeedStatus.traffic.load(), kFeedQuiet);
  EXPECT_EQ(gFeedStatus.weather.load(), kFeedQuiet);
  test::sendDatagram(gQnhReader.boundPort, R"({"QNH":1016})");
  ASSERT_TRUE(test::eventually([] { return gFeedStatus.weather.load() == kFeedFlowing; }));

  lf_stopReaders();
  ASSERT_TRUE(test::eventually([&] {
    const std::string text = log.text();
    return text.find("\n          Traffic Reader disconnected\n") != std::string::npos &&
           text.find("\n          QNH Reader disconnected\n") != std::string::npos;
  }));
  EXPECT_EQ(gFeedStatus.traffic.load(), kFeedStopped);
  EXPECT_NE(log.text().find("\nTraffic Reader has stopped\n"), std::string::npos);
}

}  // namespace
}  // namespace orv
