#pragma once
// Helpers of the loopback tests: sockets that close themselves, and waiting for another
// thread with a generous limit, so that a fault fails the test instead of hanging it.
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "platform/net/socket_layer.h"

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

// Stops and joins a thread however the test leaves its scope.
struct StopAndJoin {
  std::atomic<bool>& stop;
  std::thread& thread;
  ~StopAndJoin() {
    stop = true;
    if (thread.joinable()) thread.join();
  }
};

inline bool eventually(const std::function<bool()>& condition,
                       std::chrono::milliseconds limit = std::chrono::milliseconds(10000)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

// A UDP socket at 127.0.0.1 on a free port, whose receives give up after a while.
inline net::Socket udpReceiver(int timeoutMs) {
  const net::Socket s = net::openSocket(net::Kind::Datagram);
  net::bindPort(s, 0, true);
  net::setReceiveTimeout(s, timeoutMs);
  return s;
}

}  // namespace orv::standin::test
