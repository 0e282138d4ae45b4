#pragma once
// Helpers of the feed's loopback tests: RealTraffic's side of the link played by the test, and
// a fixture that closes the link after each test.
#include <gtest/gtest.h>

#include <mutex>
#include <string>

#include "engine/engine_tables.h"
#include "engine/traffic_queue.h"
#include "feed/feed_readers.h"
#include "feed/rt_link.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "platform/net/socket_layer.h"
#include "simlink/user_aircraft.h"
#include "test_support.h"

namespace orv::test {

// A RealTraffic client on 127.0.0.1; a receive gives up after ten seconds, failing the test
// instead of hanging it.
struct RtPeer {
  explicit RtPeer(std::uint16_t port) : s(net::openSocket(net::Kind::Stream)) {
    EXPECT_EQ(net::connectSocket(s, net::Endpoint{net::kLoopback, port}), 0);
    net::setReceiveTimeout(s, 10000);
  }
  ~RtPeer() { close(); }
  void send(std::string_view text) { net::sendText(s, text); }
  void close() {
    if (s != net::kNoSocket) net::closeSocket(s);
    s = net::kNoSocket;
  }
  // The next line with its CR LF; empty when none comes.
  std::string receiveLine() {
    std::size_t end = 0;
    while ((end = pending.find("\r\n")) == std::string::npos) {
      char buffer[4096];
      const int n = net::receive(s, buffer, sizeof buffer);
      if (n <= 0) return {};
      pending.append(buffer, static_cast<std::size_t>(n));
    }
    std::string line = pending.substr(0, end + 2);
    pending.erase(0, end + 2);
    return line;
  }
  net::Socket s;
  std::string pending;
};

inline bool sendDatagram(std::uint16_t port, std::string_view datagram) {
  const net::Socket s = net::openSocket(net::Kind::Datagram);
  const int n = net::sendTo(s, datagram, net::Endpoint{net::kLoopback, port});
  net::closeSocket(s);
  return n == static_cast<int>(datagram.size());
}

// Every test starts from the run state's reset; the link is closed again at the end, so that
// no socket outlives its test.
class FeedTest : public testing::Test {
 protected:
  void TearDown() override { lf_closeRt(); }
  LogCapture log;
};

}  // namespace orv::test
