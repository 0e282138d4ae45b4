#include "flood.h"

#include <fmt/format.h>

#include <chrono>
#include <stdexcept>

#include "fault_datagrams.h"
#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"

namespace orv::standin {

Flood::Flood(int perSecond, const PlayOptions& options, PlayCounts& counts) : counts_(counts) {
  if (perSecond <= 0) return;
  thread_ = std::thread([this, perSecond, traffic = options.trafficPort, weather = options.weatherPort] {
    run(perSecond, traffic, weather);
  });
}

Flood::~Flood() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
}

void Flood::offer(std::string_view trafficLine) {
  if (!thread_.joinable() || trafficLine.find(" VEH") != std::string_view::npos) return;
  if (replaceField(trafficLine, 14, "x") == trafficLine) return;
  std::lock_guard lock(mutex_);
  base_.assign(trafficLine);
}

void Flood::run(int perSecond, std::uint16_t trafficPort, std::uint16_t weatherPort) {
  const net::Socket socket = net::openSocket(net::Kind::Datagram);
  if (socket == net::kNoSocket) return;
  // Sent by the millisecond, so that the rate holds without a sleep per datagram.
  const auto start = std::chrono::steady_clock::now();
  std::size_t n = 0;
  std::string base;
  while (!stop_.load()) {
    {
      std::lock_guard lock(mutex_);
      base = base_;
    }
    const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const auto due = static_cast<std::size_t>(elapsed * perSecond);
    for (; !base.empty() && n < due && !stop_.load(); ++n) {
      const FloodDatagram d = floodDatagram(base, n);
      const std::uint16_t port = d.weather ? weatherPort : trafficPort;
      if (net::sendTo(socket, d.text, net::Endpoint{net::kLoopback, port}) == net::kSocketError) {
        ++counts_.failed;
        continue;
      }
      ++counts_.flooded;
      ++(d.overlong ? counts_.overlongMustLog : d.weather ? counts_.weatherMustLog : counts_.trafficMustLog);
    }
    // Until the first good line comes, the flood has nothing to break.
    if (base.empty()) n = due;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  net::closeSocket(socket);
}

}  // namespace orv::standin
