// The words for socket error codes that reach the log and the message area.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"

namespace orv {
namespace {

TEST(SocketError, RealFailuresReachTheLogInWordsAndUnknownCodesSaySo) {
  // A port nobody listens on: the connection is refused, in the words the log shows.
  const net::Socket listener = net::openSocket(net::Kind::Stream);
  ASSERT_EQ(net::bindPort(listener, 0, true), 0);
  const std::uint16_t port = net::localPort(listener);
  net::closeSocket(listener);
  const net::Socket client = net::openSocket(net::Kind::Stream);
  EXPECT_NE(net::connectSocket(client, net::Endpoint{net::kLoopback, port}), 0);
  EXPECT_EQ(gf_socketError(net::lastError()), "10061 Connection refused");
  net::closeSocket(client);

  // Two sockets on one port.
  const net::Socket first = net::openSocket(net::Kind::Datagram);
  ASSERT_EQ(net::bindPort(first, 0, true), 0);
  const net::Socket second = net::openSocket(net::Kind::Datagram);
  EXPECT_NE(net::bindPort(second, net::localPort(first), true), 0);
  EXPECT_EQ(gf_socketError(net::lastError()), "10048 Address already in use");
  net::closeSocket(first);
  net::closeSocket(second);

  // Neighbours of table entries, gaps inside it, and values no socket call gives.
  for (int code : {10000, 10003, 10005, 10072, 10090, 10094, 10100, 10102, 10109, 11000, 11002, 11005, 0, -1})
    EXPECT_EQ(gf_socketError(code), "Unknown errror code") << code;
}

#if !defined(_WIN32)
// POSIX sockets answer with errno; Winsock gives its codes itself.
TEST(SocketError, ErrnoMapsToTheWinsockCodeOfTheSameMeaningElseKeepsTheSystemText) {
  const std::pair<int, std::string_view> mapped[] = {
      {EINTR, "10004 Interrupted system call"},  {EAGAIN, "10035 Operation would block"},
      {EWOULDBLOCK, "10035 Operation would block"}, {ETIMEDOUT, "10060 Connection timed out"},
      {ECONNRESET, "10054 Connection reset by peer"}, {EPIPE, "10054 Connection reset by peer"},
      {ECONNREFUSED, "10061 Connection refused"}, {EADDRINUSE, "10048 Address already in use"},
      {EBADF, "10009 Bad file number"},            {EMSGSIZE, "10040 Messenger too long"}};
  for (const auto& [err, text] : mapped) EXPECT_EQ(gf_socketError(net::codeOfErrno(err)), text) << err;

  EXPECT_EQ(net::codeOfErrno(ENOENT), ENOENT);
  EXPECT_EQ(gf_socketError(net::codeOfErrno(ENOENT)), std::to_string(ENOENT) + " " + std::strerror(ENOENT));
  EXPECT_EQ(gf_socketError(net::codeOfErrno(ENOMEM)), std::to_string(ENOMEM) + " " + std::strerror(ENOMEM));
}
#endif

}  // namespace
}  // namespace orv
