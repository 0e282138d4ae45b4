#include "feed/udp_reader.h"

#include <fmt/format.h>

#include <stdexcept>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "platform/net/socket_error.h"

namespace orv {
namespace {

constexpr int kReceiveTimeoutMs = 1000;


void lf_readerFailed(std::string_view name, std::string_view text) {
  setMessage(fmt::format("The {} has stopped with error: {}", name, text.empty() ? "Unknown exception" : text), true);
  requestStop(ExitReason::ReaderError, 15);
}

}  // namespace

void UdpReader::open() {
  if (const int rc = net::startup(); rc != 0) throw std::runtime_error(fmt::format("WSA startup error: {}", rc));
  const net::Socket s = net::openSocket(net::Kind::Datagram);
  if (s == net::kNoSocket)
    throw std::runtime_error(fmt::format("failed to create the socket, error: {}", gf_socketError(net::lastError())));
  std::lock_guard lock(socketMutex_);
  socket_ = s;
}

void UdpReader::bind(std::uint16_t port, bool local) {
  std::lock_guard lock(socketMutex_);
  if (net::bindPort(socket_, port, local) != 0)
    throw std::runtime_error(fmt::format("bind to stream socket failed, error: {}", gf_socketError(net::lastError())));
  boundPort = net::localPort(socket_);
}

void UdpReader::receiveLoop(bool local) {
  // Only this thread closes the socket, so its number stays valid without the lock.
  net::Socket s = net::kNoSocket;
  {
    std::lock_guard lock(socketMutex_);
    s = socket_;
  }
  net::setReceiveTimeout(s, kReceiveTimeoutMs);
  while (!stop.load(std::memory_order_relaxed)) {
    const int n = net::receiveFrom(s, buffer.data(), kDatagramBufferSize, nullptr);
    if (n >= kDatagramBufferSize) {
      if (!gf_stopping()) gf_log("buffer overrun: {} bytes", n);
    } else if (n > 0) {
      buffer[static_cast<std::size_t>(n)] = '\0';
      const std::string_view datagram(buffer.data(), static_cast<std::size_t>(n));
      if (!local) {
        if (datagram == last) continue;
        last.assign(datagram);
      }
      line = datagram;
      count.fetch_add(1, std::memory_order_relaxed);
      processDatagram();
    } else if (n == net::kSocketError) {
      const int code = net::lastError();
      if (net::isPassedOver(code)) continue;
      if (stop.load()) break;
      throw std::runtime_error(fmt::format("receive error: {}", gf_socketError(code)));
    }
  }
  closeSocket();
  stopped();
}

void UdpReader::stopSoon() {
  stop = true;
  std::lock_guard lock(socketMutex_);
  // A shut-down socket answers the waiting receive at once with nothing, and every later one too.
  if (socket_ != net::kNoSocket) net::shutdownBoth(socket_);
}

void UdpReader::closeSocket() {
  std::lock_guard lock(socketMutex_);
  if (socket_ == net::kNoSocket) return;
  net::closeSocket(socket_);
  socket_ = net::kNoSocket;
}

void gf_runReader(UdpReader& reader, std::string_view name, std::uint16_t port, bool local,
                  void (*showStatus)(int status)) {
  try {
    try {
      reader.open();
      reader.bind(port, local);
      showStatus(kFeedFlowing);
      gf_logIndented("{} connected", name);
      reader.receiveLoop(local);
    } catch (const std::exception& e) {
      lf_readerFailed(name, e.what());
    } catch (...) {
      lf_readerFailed(name, {});
    }
    reader.closeSocket();
    if (!gv_readerCleanupDone.exchange(true)) net::cleanup();
    showStatus(kFeedStopped);
    gf_logIndented("{} disconnected", name);
  } catch (...) {
    // Nothing may leave a detached thread; the log line that failed is all that is lost.
  }
}

}  // namespace orv
