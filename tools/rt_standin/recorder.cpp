// Two receive threads, one a port; each line is flushed at once, so that an interrupted
// recording keeps everything up to its last datagram.
#include "recorder.h"

#include <fmt/format.h>

#include <chrono>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include "fault_datagrams.h"
#include "platform/net/socket_error.h"

namespace orv::standin {

namespace {

net::Socket openPort(std::uint16_t port, bool anyAddress) {
  const net::Socket s = net::openSocket(net::Kind::Datagram);
  if (s == net::kNoSocket)
    throw std::runtime_error(fmt::format("no UDP socket for port {}: {}", port, gf_socketError(net::lastError())));
  if (net::bindPort(s, port, !anyAddress) == net::kSocketError) {
    const int code = net::lastError();
    net::closeSocket(s);
    throw std::runtime_error(fmt::format("cannot listen on UDP port {}: {}", port, gf_socketError(code)));
  }
  // The receive must return now and then to look at stop.
  net::setReceiveTimeout(s, 200);
  return s;
}

struct Writer {
  std::ostream& out;
  std::mutex mutex;
  std::chrono::steady_clock::time_point start;
  RecordCounts& counts;
};

void receiveLoop(net::Socket socket, std::uint16_t standardPort, Writer& writer, Console& console,
                 const std::atomic<bool>& stop) {
  // One byte more than the reader's buffer, so that an oversize datagram shows as one.
  std::vector<char> buffer(kReaderBufferSize + 1);
  while (!stop.load()) {
    const int n = net::receiveFrom(socket, buffer.data(), static_cast<int>(buffer.size()), nullptr);
    if (n == net::kSocketError) {
      const int code = net::lastError();
      if (code == net::kCodeInterrupted || code == net::kCodeWouldBlock || code == net::kCodeTimedOut) continue;
      say(console, fmt::format("receive on {} failed: {}", standardPort, gf_socketError(code)));
      return;
    }
    RecordedDatagram datagram;
    datagram.port = standardPort;
    datagram.text.assign(buffer.data(), static_cast<std::size_t>(n));
    // Timed under the lock: the two threads' lines then never go back in time.
    const std::lock_guard lock(writer.mutex);
    datagram.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - writer.start).count();
    writer.out << formatDatagramLine(datagram) << '\n';
    writer.out.flush();
    ++writer.counts.datagrams;
  }
}

}  // namespace

RecorderSockets openRecorder(const RecordOptions& options) {
  RecorderSockets sockets;
  sockets.traffic = openPort(options.trafficPort, options.anyAddress);
  try {
    sockets.weather = openPort(options.weatherPort, options.anyAddress);
  } catch (...) {
    net::closeSocket(sockets.traffic);
    throw;
  }
  return sockets;
}

void record(RecorderSockets& sockets, std::ostream& out, Console& console, const std::atomic<bool>& stop,
            RecordCounts& counts) {
  const double epoch =
      std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
  Writer writer{out, {}, std::chrono::steady_clock::now(), counts};
  out << "# rt_standin recording: <seconds> <port> <datagram>\n" << formatEpochLine(epoch) << '\n';
  out.flush();
  say(console, fmt::format("recording traffic on port {}, weather on port {}", net::localPort(sockets.traffic),
                           net::localPort(sockets.weather)));
  std::thread weather(receiveLoop, sockets.weather, kWeatherPort, std::ref(writer), std::ref(console), std::cref(stop));
  receiveLoop(sockets.traffic, kTrafficPort, writer, console, stop);
  weather.join();
  net::closeSocket(sockets.traffic);
  net::closeSocket(sockets.weather);
  sockets = RecorderSockets{};
  say(console, fmt::format("recorded {} datagrams", counts.datagrams.load()));
}

}  // namespace orv::standin
