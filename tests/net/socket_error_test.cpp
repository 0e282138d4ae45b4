// The words for socket error codes that reach the log and the message area.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"

namespace orv {
namespace {

// Real failures in words are in the socket layer's tests; here the codes no call of this
// platform gives.
TEST(SocketError, NeighboursAndGapsOfTheTableAreUnknownCodes) {
  for (int code : {10000, 10003, 10005, 10072, 10090, 10094, 10100, 10102, 10109, 11000, 11002, 11005, 0, -1})
    EXPECT_EQ(gf_socketError(code), "Unknown errror code") << code;
}

#if !defined(_WIN32)
// POSIX sockets answer with errno; Winsock gives its codes itself.
TEST(SocketError, ErrnoMapsToTheWinsockCodeOfTheSameMeaningElseKeepsTheSystemText) {
  // Those that the loopback tests cannot provoke; refused, in use, reset and a closed socket
  // come from real calls there.
  const std::pair<int, std::string_view> mapped[] = {
      {EINTR, "10004 Interrupted system call"},   {EAGAIN, "10035 Operation would block"},
      {ETIMEDOUT, "10060 Connection timed out"}, {EPIPE, "10054 Connection reset by peer"},
      {EMSGSIZE, "10040 Messenger too long"}};
  for (const auto& [err, text] : mapped) EXPECT_EQ(gf_socketError(net::codeOfErrno(err)), text) << err;

  EXPECT_EQ(net::codeOfErrno(ENOENT), ENOENT);
  EXPECT_EQ(gf_socketError(net::codeOfErrno(ENOENT)), std::to_string(ENOENT) + " " + std::strerror(ENOENT));
  EXPECT_EQ(gf_socketError(net::codeOfErrno(ENOMEM)), std::to_string(ENOMEM) + " " + std::strerror(ENOMEM));
}
#endif

}  // namespace
}  // namespace orv
