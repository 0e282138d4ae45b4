// TCP and UDP through the socket layer on loopback, with the edges the feed relies on:
// time-outs that the readers pass over, closing that frees a blocked call, datagram sizes.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"

namespace orv::net {
namespace {

using namespace std::chrono_literals;

struct Owned {  // closes what a failed assertion leaves open
  Socket s;
  ~Owned() { release(); }
  void release() {
    if (s != kNoSocket) closeSocket(s);
    s = kNoSocket;
  }
};

bool passedOver(int code) { return code == kCodeInterrupted || code == kCodeWouldBlock || code == kCodeTimedOut; }

// The order of the RealTraffic server: resolve, socket, blocking, reuse, bind, listen.
Socket openServer() {
  ResolvedAddress address;
  if (startup() != 0 || resolvePassive("0", Kind::Stream, address) != 0) return kNoSocket;
  const Socket s = openSocket(address);
  if (setBlocking(s) != 0 || setReuseAddress(s) != 0 || bindResolved(s, address) != 0 || listenSocket(s) != 0) {
    closeSocket(s);
    return kNoSocket;
  }
  return s;
}

Socket openReader() {
  const Socket s = openSocket(Kind::Datagram);
  if (bindPort(s, 0, true) == 0) return s;
  closeSocket(s);
  return kNoSocket;
}

TEST(SocketLayer, TcpLoopbackCarriesLinesBothWaysAndReportsTheEnd) {
  Owned server{openServer()};
  ASSERT_NE(server.s, kNoSocket) << gf_socketError(lastError());
  const std::uint16_t port = localPort(server.s);
  Owned client{openSocket(Kind::Stream)};
  ASSERT_EQ(connectSocket(client.s, Endpoint{kLoopback, port}), 0) << gf_socketError(lastError());
  Owned accepted{acceptSocket(server.s)};
  ASSERT_NE(accepted.s, kNoSocket);
  EXPECT_EQ(setNoDelay(accepted.s), 0);

  EXPECT_EQ(sendText(accepted.s, "Qs999=version\r\n"), 15);
  std::string got(64, '\0');
  EXPECT_EQ(receive(client.s, got.data(), 64), 15);
  EXPECT_EQ(got.substr(0, 15), "Qs999=version\r\n");
  EXPECT_EQ(sendText(client.s, R"({"level":2})"), 11);
  EXPECT_EQ(receive(accepted.s, got.data(), 64), 11);

  // The peer goes: a receive sees 0 bytes, and sending fails with a code instead of SIGPIPE.
  client.release();
  EXPECT_EQ(receive(accepted.s, got.data(), 64), 0);
  int result = 0;
  for (int i = 0; i < 50 && result != kSocketError; ++i) result = sendText(accepted.s, "Qs121=1;2;3;4;5;6;7\r\n");
  EXPECT_EQ(result, kSocketError);
  EXPECT_EQ(gf_socketError(lastError()), "10054 Connection reset by peer");

  // Failures of the calls come as Winsock codes.
  Owned second{openSocket(Kind::Stream)};
  EXPECT_EQ(bindPort(second.s, port, false), kSocketError);
  EXPECT_EQ(gf_socketError(lastError()), "10048 Address already in use");
  server.release();
  EXPECT_EQ(connectSocket(second.s, Endpoint{kLoopback, port}), kSocketError);
  EXPECT_EQ(gf_socketError(lastError()), "10061 Connection refused");
  EXPECT_EQ(receive(server.s, got.data(), 1), kSocketError);
#if defined(_WIN32)
  EXPECT_EQ(lastError(), 10038);  // Winsock: no socket of that number
#else
  EXPECT_EQ(lastError(), 10009);  // EBADF's twin
#endif
  ResolvedAddress address;
  EXPECT_NE(resolvePassive("no-such-port", Kind::Stream, address), 0);
  cleanup();
}

TEST(SocketLayer, UdpLoopbackAndTheReceiveTimeOut) {
  Owned reader{openReader()};
  ASSERT_NE(reader.s, kNoSocket);
  const Endpoint readerAt{kLoopback, localPort(reader.s)};
  ASSERT_EQ(setReceiveTimeout(reader.s, 50), 0);
  Owned sender{openSocket(Kind::Datagram)};
  const std::string line = "RTTFC,3951393,50.0333,8.5706,3000,-800,0,249.0,160,DLH401,B748";
  ASSERT_EQ(sendTo(sender.s, line, readerAt), static_cast<int>(line.size()));
  ASSERT_EQ(sendTo(sender.s, "", readerAt), 0);

  std::vector<char> buffer(16384);
  Endpoint from;
  const int n = receiveFrom(reader.s, buffer.data(), 16384, &from);
  EXPECT_EQ(std::string(buffer.data(), static_cast<std::size_t>(std::max(n, 0))), line);
  EXPECT_EQ(from.address, kLoopback);
  EXPECT_EQ(from.port, localPort(sender.s));
  EXPECT_EQ(receiveFrom(reader.s, buffer.data(), 16384, nullptr), 0);  // an empty datagram is no error

  // Nothing more comes: the time-out gives a code that the reader loop passes over.
  EXPECT_EQ(receiveFrom(reader.s, buffer.data(), 16384, nullptr), kSocketError);
#if defined(_WIN32)
  EXPECT_EQ(lastError(), kCodeTimedOut);  // Winsock's word for an SO_RCVTIMEO that ran out
#else
  EXPECT_EQ(lastError(), kCodeWouldBlock);
#endif
  // The same on a stream socket; and the code belongs to the calling thread.
  Owned server{openServer()};
  Owned client{openSocket(Kind::Stream)};
  ASSERT_EQ(connectSocket(client.s, Endpoint{kLoopback, localPort(server.s)}), 0);
  ASSERT_EQ(setReceiveTimeout(client.s, 50), 0);
  EXPECT_EQ(receive(client.s, buffer.data(), 16), kSocketError);
  EXPECT_TRUE(passedOver(lastError())) << gf_socketError(lastError());
  std::thread([] { EXPECT_EQ(lastError(), 0); }).join();
}

TEST(SocketLayer, DatagramOf16384BytesFillsTheReaderBuffer) {
  Owned reader{openReader()};
  ASSERT_NE(reader.s, kNoSocket);
  ASSERT_EQ(setReceiveTimeout(reader.s, 5000), 0);
  Owned sender{openSocket(Kind::Datagram)};
  std::vector<char> buffer(16384);
  // 16383 bytes leave room for the terminating zero; 16384 don't, and the reader calls it an
  // overrun. A longer one comes truncated to the buffer, an overrun as well.
  for (std::size_t size : {16383u, 16384u, 16385u, 20000u}) {
    ASSERT_EQ(sendTo(sender.s, std::string(size, 'X'), Endpoint{kLoopback, localPort(reader.s)}),
              static_cast<int>(size));
    EXPECT_EQ(receiveFrom(reader.s, buffer.data(), 16384, nullptr), static_cast<int>(std::min<std::size_t>(size, 16384)));
  }
}

// Runs a blocking call, closes its socket from this thread, and tells whether the call returned.
template <class Call>
bool closingFrees(Owned& socket, Call call, const std::function<void()>& wake) {
  auto result = std::async(std::launch::async, call);
  std::this_thread::sleep_for(100ms);  // let it block; a call on a closed socket fails as well
  EXPECT_EQ(closeSocket(socket.s), 0);
  socket.s = kNoSocket;
  const bool freed = result.wait_for(10s) == std::future_status::ready;
  if (!freed) wake();  // the blocked call still holds the socket: give it something, so it ends
  EXPECT_LE(result.get(), 0);
  return freed;
}

TEST(SocketLayer, ClosingFromAnotherThreadEndsABlockedCall) {
  Owned server{openServer()};
  ASSERT_NE(server.s, kNoSocket);
  const std::uint16_t port = localPort(server.s);
  EXPECT_TRUE(closingFrees(
      server, [s = server.s] { return static_cast<int>(acceptSocket(s)); },
      [port] { Owned c{openSocket(Kind::Stream)}; connectSocket(c.s, Endpoint{kLoopback, port}); }));

  Owned reader{openReader()};
  ASSERT_NE(reader.s, kNoSocket);
  const Endpoint readerAt{kLoopback, localPort(reader.s)};
  EXPECT_TRUE(closingFrees(
      reader, [s = reader.s] { char b[16]; return receiveFrom(s, b, sizeof b, nullptr); },
      [readerAt] { Owned c{openSocket(Kind::Datagram)}; sendTo(c.s, "wake", readerAt); }));
}

}  // namespace
}  // namespace orv::net
