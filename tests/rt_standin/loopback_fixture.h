#pragma once
// Helpers of the loopback tests: sockets that close themselves, UDP receivers on free ports.
#include "platform/net/socket_layer.h"
#include "test_support.h"

namespace orv::standin::test {

struct OwnedSocket {
  net::Socket s = net::kNoSocket;
  explicit OwnedSocket(net::Socket socket = net::kNoSocket) : s(socket) {}
  ~OwnedSocket() { reset(); }
  OwnedSocket(const OwnedSocket&) = delete;
  OwnedSocket& operator=(const OwnedSocket&) = delete;
  void reset(net::Socket socket = net::kNoSocket) {
    if (s != net::kNoSocket) net::closeSocket(s);
    s = socket;
  }
};

using orv::test::eventually;

// A UDP socket at 127.0.0.1 on a free port, whose receives give up after a while.
inline net::Socket udpReceiver(int timeoutMs) {
  const net::Socket s = net::openSocket(net::Kind::Datagram);
  net::bindPort(s, 0, true);
  net::setReceiveTimeout(s, timeoutMs);
  return s;
}

}  // namespace orv::standin::test
