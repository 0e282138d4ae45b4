// The words for socket error codes that reach the log and the message area.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"

namespace orv {
namespace {

TEST(SocketError, TableCodesGiveCodeBlankAndTextAndOthersAreUnknown) {
  EXPECT_EQ(gf_socketError(10004), "10004 Interrupted system call");
  EXPECT_EQ(gf_socketError(10040), "10040 Messenger too long");
  EXPECT_EQ(gf_socketError(10058), "10058 Can't send numLines socket shutdown");
  EXPECT_EQ(gf_socketError(10059), "10059 Too many references, can't splice");
  EXPECT_EQ(gf_socketError(10091), "10091 Network system is unavailable");
  EXPECT_EQ(gf_socketError(10101), "10101 Graceful shutdown in progress");
  EXPECT_EQ(gf_socketError(11004), "11004 No host data of that type was found");
  // Neighbours of table entries, gaps inside it, and values no socket call gives.
  for (int code : {10000, 10003, 10005, 10072, 10090, 10094, 10100, 10102, 10109, 11000, 11002, 11005, 0, -1})
    EXPECT_EQ(gf_socketError(code), "Unknown errror code") << code;
}

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

}  // namespace
}  // namespace orv
