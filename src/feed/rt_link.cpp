#include "feed/rt_link.h"

#include <fmt/format.h>

#include <mutex>
#include <stdexcept>

#include "feed/feed_readers.h"
#include "feed/rt_version.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "platform/net/socket_error.h"

namespace orv {
namespace {

// A send and the closing of the client socket never overlap: the window thread closes the
// link while the run thread may be sending, and a closed number can be reused at once.
std::mutex gRtClientMutex;

void lf_closeClientLocked() {
  const net::Socket s = gv_rtClientSocket.exchange(net::kNoSocket);
  if (s != net::kNoSocket) net::closeSocket(s);
}

std::string lf_lastErrorText() { return gf_socketError(net::lastError()); }

constexpr int kReceiveSliceMs = 100;


// The server could not be opened: what was opened goes, and the run ends with the text.
[[noreturn]] void lf_failOpen(net::Socket s, const std::string& text) {
  if (s != net::kNoSocket) net::closeSocket(s);
  net::cleanup();
  throw std::runtime_error(text);
}

}  // namespace

void lf_openRtServer(std::string_view port) {
  if (const int rc = net::startup(); rc != 0) throw std::runtime_error(fmt::format("WSAStartup failed with error {}", rc));
  net::ResolvedAddress address;
  if (const int rc = net::resolvePassive(port, net::Kind::Stream, address); rc != 0)
    lf_failOpen(net::kNoSocket, fmt::format("getaddrinfo failed with error {}", rc));
  const net::Socket s = net::openSocket(address);
  if (s == net::kNoSocket) lf_failOpen(s, "socket failed with error " + lf_lastErrorText());
  // Blocking on purpose: closing the socket from another thread is what ends a waiting accept.
  if (net::setBlocking(s) != 0) lf_failOpen(s, "ioctlsocket failed with error " + lf_lastErrorText());
  if (net::setReuseAddress(s) != 0) lf_failOpen(s, "setsockopt(SO_REUSEADDR) failed");
  if (net::bindResolved(s, address) != 0)
    lf_failOpen(s, fmt::format("Bind failed at port {} with error {}", port, lf_lastErrorText()));
  if (net::listenSocket(s) != 0) lf_failOpen(s, "listen failed with error " + lf_lastErrorText());
  gv_rtListenSocket = s;
}

bool lf_acceptRt() {
  if (gv_rtConnected.load()) return false;
  const net::Socket s = net::acceptSocket(gv_rtListenSocket.load());
  if (s == net::kNoSocket) return false;
  try {
    if (net::setNoDelay(s) != 0)
      throw std::runtime_error(fmt::format("{} setsockopt failed with error {}", gf_timeOfDay(), lf_lastErrorText()));
  } catch (const std::exception& e) {
    gf_log("waitForClient interrupted: {}", e.what());
    net::closeSocket(s);
    return false;
  }
  // The slice of a receive's wait for the version (lf_receiveRt).
  net::setReceiveTimeout(s, kReceiveSliceMs);
  {
    std::lock_guard lock(gRtClientMutex);
    lf_closeClientLocked();
    gv_rtClientSocket = s;
  }
  gv_rtConnected = true;
  return true;
}

void waitForClient() {
  if (!gv_rtOnThisPc) return;
  setMessage(fmt::format("Waiting for RealTraffic to connect to {} ...", kProgramName), true);
  lf_resetFeed();
  if (lf_acceptRt()) {
    sendDataPacket(kVersionRequest);
    const std::string reply = lf_receiveRt();
    // Closing the link is what ends a receive that waits while the user closes: that is no
    // missing version, and no connection.
    if (gf_stopping()) {
      clearMessage();
      return;
    }
    lf_processRTVersion(reply);
    gFeedStatus.rtConnected.show(true);
    gf_log("RealTraffic connected");
  }
  clearMessage();
}

bool sendDataPacket(std::string_view text) {
  std::lock_guard lock(gRtClientMutex);
  if (net::sendText(gv_rtClientSocket.load(), text) != net::kSocketError) return true;
  // While the run ends, a failed send is expected and not worth a line.
  const bool quiet = gf_stopping();
  if (!quiet) gf_log("sendDataPacket to RealTraffic failed: {}", lf_lastErrorText());
  gv_rtConnected = false;
  lf_closeClientLocked();
  if (!quiet) gf_log("RealTraffic client socket closed");
  return false;
}

std::string lf_receiveRt() {
  std::string buffer(static_cast<std::size_t>(kRtReceiveSize), '\0');
  int n = 0;
  // The receive waits in slices, holding the client socket, and looks at the stop flags between
  // them: a closing run then closes the socket only when no receive is inside it.
  for (;;) {
    std::lock_guard lock(gRtClientMutex);
    const net::Socket s = gv_rtClientSocket.load();
    if (s == net::kNoSocket) return {};
    n = net::receive(s, buffer.data(), kRtReceiveSize);
    if (n != net::kSocketError || !net::isPassedOver(net::lastError())) break;
    if (gf_stopping()) return {};
  }
  if (n == net::kSocketError) {
    if (!gf_stopping()) gf_log("receive: {}", lf_lastErrorText());
    return {};
  }
  if (n < 1) return {};
  if (n >= kRtReceiveSize) {
    if (!gf_stopping()) gf_log("receive: buffer overrun: {}", n);
    return {};
  }
  buffer.resize(static_cast<std::size_t>(n));
  return buffer;
}

void lf_closeRt() {
  if (gv_rtConnected.load()) sendDataPacket(kExitMessage);
  const net::Socket listener = gv_rtListenSocket.exchange(net::kNoSocket);
  if (listener != net::kNoSocket) net::closeSocket(listener);
  {
    std::lock_guard lock(gRtClientMutex);
    lf_closeClientLocked();
  }
  // No socket, no client: the next run's accept must not take the link for still standing.
  gv_rtConnected = false;
  // Only the opening of the server started the socket library.
  if (listener != net::kNoSocket) net::cleanup();
}

}  // namespace orv
