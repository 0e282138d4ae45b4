// The stand-in against a small server that plays Orvane's part of the link on loopback.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>

#include "loopback_fixture.h"
#include "rt_link.h"

namespace orv::standin {
namespace {

using test::eventually;
using test::OwnedSocket;

struct FakeOrvane {
  OwnedSocket listener;
  std::uint16_t port = 0;
  FakeOrvane() {
    net::ResolvedAddress address;
    net::resolvePassive("0", net::Kind::Stream, address);
    listener.reset(net::openSocket(address));
    net::setReuseAddress(listener.s);
    net::bindResolved(listener.s, address);
    net::listenSocket(listener.s);
    // On Linux the receive time-out bounds accept too: a stand-in that never comes fails the test.
    net::setReceiveTimeout(listener.s, 10000);
    port = net::localPort(listener.s);
  }
  net::Socket accept() {
    const net::Socket c = net::acceptSocket(listener.s);
    if (c != net::kNoSocket) net::setReceiveTimeout(c, 10000);
    return c;
  }
};

std::string receiveText(net::Socket s) {
  char buffer[512];
  const int n = net::receive(s, buffer, sizeof buffer);
  return n > 0 ? std::string(buffer, static_cast<std::size_t>(n)) : std::string();
}

// Runs the link on its own thread for the life of the object.
struct LinkRun {
  std::ostringstream out;
  Console console{out};
  std::atomic<bool> stop{false};
  LinkCounts counts;
  std::thread thread;
  explicit LinkRun(LinkOptions options) : thread([this, options] { runLink(options, console, stop, counts); }) {}
  ~LinkRun() { finish(); }
  std::string finish() {
    stop = true;
    if (thread.joinable()) thread.join();
    return out.str();
  }
};

TEST(LinkSession, AnswersTheVersionShowsWhatOrvaneSendsAndComesBack) {
  FakeOrvane orvane;
  ASSERT_NE(orvane.port, 0);
  LinkOptions options;
  options.port = orvane.port;
  options.retrySeconds = 0.05;
  LinkRun run(options);

  OwnedSocket client(orvane.accept());
  ASSERT_NE(client.s, net::kNoSocket);
  ASSERT_GT(net::sendText(client.s, "Qs999=version\r\n"), 0);
  EXPECT_EQ(receiveText(client.s), "{\"level\":2,\"version\":\"9.0\"}\r\n");

  // A message may arrive in pieces; lines are whole again on the other side.
  ASSERT_GT(net::sendText(client.s, "Qs121=4363;-17453;4.345870;30"), 0);
  ASSERT_TRUE(eventually([&] { return run.counts.versionRequests == 1; }));
  ASSERT_GT(net::sendText(client.s, "00000;150000;0.873245;0.149585\r\nQs123=1718020800250\r\nQs555=what\r\n"), 0);
  ASSERT_TRUE(eventually([&] { return run.counts.simTimes == 1; }));
  EXPECT_EQ(run.counts.positions, 1);

  // Orvane restarts: the stand-in connects again, and hears the closing word.
  client.reset();
  client.reset(orvane.accept());
  ASSERT_NE(client.s, net::kNoSocket);
  EXPECT_TRUE(eventually([&] { return run.counts.connections == 2; }));
  ASSERT_GT(net::sendText(client.s, "exit\r\n"), 0);
  EXPECT_EQ(receiveText(client.s), "");  // the stand-in closes its end after exit
  EXPECT_TRUE(eventually([&] { return run.counts.exits == 1; }));

  const std::string text = run.finish();
  EXPECT_NE(text.find("connected to Orvane on 127.0.0.1:" + std::to_string(orvane.port)), std::string::npos) << text;
  EXPECT_NE(text.find("Qs999 version request: replied {\"level\":2,\"version\":\"9.0\"}"), std::string::npos) << text;
  EXPECT_NE(text.find("Qs121 position 50.033"), std::string::npos) << text;
  EXPECT_NE(text.find("3000 ft, 150.0 kt, heading 249.0, pitch 2.50, bank -10.00"), std::string::npos) << text;
  EXPECT_NE(text.find("Qs123 sim time 2024-06-10 12:00:00.250 UTC"), std::string::npos) << text;
  EXPECT_NE(text.find("unknown message: Qs555=what"), std::string::npos) << text;
  EXPECT_NE(text.find("Orvane closed the link"), std::string::npos) << text;
  EXPECT_NE(text.find("exit: Orvane is closing down"), std::string::npos) << text;
}

TEST(LinkSession, EmptyReplyAndDroppedLink) {
  FakeOrvane orvane;
  LinkOptions options;
  options.port = orvane.port;
  options.retrySeconds = 0.05;
  options.reply.form = ReplyForm::Empty;
  options.dropAfterSeconds = 0.5;
  LinkRun run(options);

  OwnedSocket client(orvane.accept());
  ASSERT_NE(client.s, net::kNoSocket);
  ASSERT_GT(net::sendText(client.s, "Qs999=version\r\n"), 0);
  // Nothing comes back: Orvane's receive sees the end of the stream, as for no reply at all.
  char byte = 0;
  EXPECT_EQ(net::receive(client.s, &byte, 1), 0);
  // Positions still arrive after that.
  ASSERT_GT(net::sendText(client.s, "Qs121=0;0;0;0;0;0.873245;0.149585\r\n"), 0);
  EXPECT_TRUE(eventually([&] { return run.counts.positions == 1; }));

  // The drop fault cuts the link; the stand-in comes back by itself.
  EXPECT_TRUE(eventually([&] { return run.counts.drops == 1; }));
  client.reset();
  client.reset(orvane.accept());
  ASSERT_NE(client.s, net::kNoSocket);
  EXPECT_TRUE(eventually([&] { return run.counts.connections == 2; }));
  const std::string text = run.finish();
  EXPECT_NE(text.find("answered with nothing (sending side closed)"), std::string::npos) << text;
  EXPECT_NE(text.find("fault: dropping the link after 0.5 s"), std::string::npos) << text;
}

}  // namespace
}  // namespace orv::standin
