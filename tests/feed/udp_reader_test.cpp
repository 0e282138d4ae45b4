// The readers on loopback: which datagrams are handed on, and how a reader whose socket fails
// ends the run.
#include "feed/udp_reader.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>
#include <vector>

#include "feed/qnh_reader.h"
#include "feed_fixture.h"

namespace orv {
namespace {

class CollectingReader final : public UdpReader {
 public:
  void processDatagram() override {
    std::lock_guard lock(mutex);
    lines.emplace_back(line);
    terminated = terminated && buffer[line.size()] == '\0';
  }
  void stopped() override {}
  std::mutex mutex;
  std::vector<std::string> lines;
  bool terminated = true;
};

// Runs a reader's loop at 127.0.0.1, sends the datagrams and an end mark, and returns what was
// handed on before the mark.
std::vector<std::string> handedOn(bool local, const std::vector<std::string>& datagrams) {
  CollectingReader reader;
  reader.open();
  reader.bind(0, true);
  std::thread loop([&] { reader.receiveLoop(local); });
  for (const auto& d : datagrams) EXPECT_TRUE(test::sendDatagram(reader.boundPort, d));
  test::sendDatagram(reader.boundPort, "END");
  EXPECT_TRUE(test::eventually([&] {
    std::lock_guard lock(reader.mutex);
    return !reader.lines.empty() && reader.lines.back() == "END";
  }));
  reader.stopSoon();
  loop.join();
  EXPECT_TRUE(reader.terminated) << "a zero stands behind each datagram";
  EXPECT_EQ(reader.count.load(), static_cast<std::int32_t>(reader.lines.size()));
  reader.lines.pop_back();
  return reader.lines;
}

using ReaderLoop = test::FeedTest;

TEST_F(ReaderLoop, RepeatsAreDroppedOnlyFromAFeedOfAnotherComputer) {
  const std::vector<std::string> sent{"A", "A", "B", "A", "B", "B"};
  EXPECT_EQ(handedOn(false, sent), (std::vector<std::string>{"A", "B", "A", "B"}));
  EXPECT_EQ(handedOn(true, sent), sent);
}

TEST_F(ReaderLoop, TheLargestDatagramPassesAndOneByteMoreIsLoggedAndDropped) {
  const std::string largest(kDatagramBufferSize - 1, 'x');
  EXPECT_EQ(handedOn(false, {largest, std::string(kDatagramBufferSize, 'y')}), std::vector<std::string>{largest});
  EXPECT_NE(log.text().find("\nbuffer overrun: 16384 bytes\n"), std::string::npos);
}

TEST_F(ReaderLoop, AReaderWhoseSocketFailsEndsTheRunWithReaderError) {
  const net::Socket holder = net::openSocket(net::Kind::Datagram);  // someone else holds the port
  ASSERT_EQ(net::bindPort(holder, 0, false), 0);
  gFeedStatus.weather.show(kFeedFlowing);
  gf_startQnhReader(net::localPort(holder));
  net::closeSocket(holder);

  EXPECT_EQ(gv_exitReason.load(), ExitReason::ReaderError);
  EXPECT_EQ(gv_restartSeconds.load(), 15);
  EXPECT_EQ(gf_messageArea().messageText,
            "The QNH Reader has stopped with error: bind to stream socket failed, error: 10048 Address already in use");
  EXPECT_EQ(gFeedStatus.weather.load(), kFeedStopped);
  EXPECT_NE(log.text().find("\n          QNH Reader disconnected\n"), std::string::npos) << log.text();
}

}  // namespace
}  // namespace orv
