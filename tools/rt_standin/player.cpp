// The replay loop. Send times come from one start instant, so that a slow send doesn't
// push the rest of the recording later.
#include "player.h"

#include <fmt/format.h>

#include <chrono>
#include <optional>
#include <stdexcept>

#include "fault_datagrams.h"
#include "flood.h"
#include "platform/net/socket_error.h"
#include "platform/net/socket_layer.h"
#include "stop_wait.h"
#include "timestamp_shift.h"

namespace orv::standin {

namespace {

double unixNow() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::string shortened(std::string_view text) {
  constexpr std::size_t kShown = 100;
  if (text.size() <= kShown) return std::string(text);
  return fmt::format("{}... ({} bytes)", text.substr(0, kShown), text.size());
}

struct Sender {
  net::Socket socket;
  Console& console;
  PlayCounts& counts;
  bool verbose;
};

bool sendOne(Sender& sender, std::string_view datagram, std::uint16_t port) {
  if (net::sendTo(sender.socket, datagram, net::Endpoint{net::kLoopback, port}) == net::kSocketError) {
    ++sender.counts.failed;
    say(sender.console, fmt::format("send to {} failed: {}", port, gf_socketError(net::lastError())));
    return false;
  }
  if (sender.verbose) say(sender.console, fmt::format("{} {}", port, shortened(datagram)));
  return true;
}

// A datagram held back by the reorder fault, sent after the next one.
struct Held {
  std::string text;
  std::uint16_t port = 0;
};

void sendHeld(Sender& sender, const Held& held, const PlayOptions& options, PlayCounts& counts) {
  if (sendOne(sender, held.text, held.port)) {
    ++counts.reordered;
    ++(held.port == options.trafficPort ? counts.traffic : held.port == options.weatherPort ? counts.weather
                                                                                          : counts.other);
  }
  say(sender.console, fmt::format("fault: a datagram to {} sent after a later one", held.port));
}

// Counts a broken datagram by what the reader of its port must log of it.
void countBroken(PlayCounts& counts, bool weather, bool alwaysLogged) {
  ++(weather ? counts.weatherMustLog : alwaysLogged ? counts.trafficMustLog : counts.trafficMayLog);
}

void injectFaults(Sender& sender, const FaultOptions& faults, int sequence, const RecordedDatagram& recorded,
                  std::string_view sent, std::uint16_t port, std::size_t& malformedCount) {
  const bool weather = recorded.port == kWeatherPort;
  // The decoder drops a vehicle's line before it reads anything, broken or not.
  const bool vehicle = !weather && sent.find(" VEH") != std::string_view::npos;
  if (faults.repeatEvery > 0 && sequence % faults.repeatEvery == 0) {
    if (sendOne(sender, sent, port)) ++sender.counts.repeated;
    say(sender.console, fmt::format("fault: datagram {} sent twice to {}", sequence, port));
  }
  if (faults.malformedEvery > 0 && sequence % faults.malformedEvery == 0) {
    const std::string bad = weather ? malformedWeather(malformedCount) : malformedTraffic(sent, malformedCount);
    const bool alwaysLogged = !vehicle && malformedTrafficAlwaysLogged(malformedCount);
    ++malformedCount;
    if (sendOne(sender, bad, port)) {
      ++sender.counts.malformed;
      countBroken(sender.counts, weather, alwaysLogged);
    }
    say(sender.console, fmt::format("fault: malformed datagram to {}: {}", port, shortened(bad)));
  }
  if (faults.oversizeEvery > 0 && sequence % faults.oversizeEvery == 0) {
    const std::string big = oversizeDatagram(sent);
    if (sendOne(sender, big, port)) {
      ++sender.counts.oversize;
      ++sender.counts.overlongMustLog;
    }
    say(sender.console, fmt::format("fault: {}-byte datagram to {}", big.size(), port));
  }
  if (faults.truncateEvery > 0 && sequence % faults.truncateEvery == 0) {
    const std::string cut = truncatedDatagram(sent, weather, static_cast<std::size_t>(sequence));
    if (!cut.empty() && sendOne(sender, cut, port)) {
      ++sender.counts.truncated;
      countBroken(sender.counts, weather, !vehicle);
    }
    say(sender.console, fmt::format("fault: datagram {} cut to {} bytes to {}", sequence, cut.size(), port));
  }
}

}  // namespace

std::uint16_t targetPort(std::uint16_t recordedPort, const PlayOptions& options) {
  if (recordedPort == kTrafficPort) return options.trafficPort;
  if (recordedPort == kWeatherPort) return options.weatherPort;
  return recordedPort;
}

void play(const Recording& recording, const PlayOptions& options, Console& console, const std::atomic<bool>& stop,
          PlayCounts& counts) {
  const net::Socket socket = net::openSocket(net::Kind::Datagram);
  if (socket == net::kNoSocket)
    throw std::runtime_error(fmt::format("no UDP socket for playing: {}", gf_socketError(net::lastError())));
  Sender sender{socket, console, counts, options.verbose};

  const auto epoch = options.shiftTimestamps ? recordingEpoch(recording) : std::nullopt;
  const double length = recording.datagrams.empty() ? 0.0 : recording.datagrams.back().seconds + 1.0;
  const double speed = options.speed > 0 ? options.speed : 1.0;
  say(console, fmt::format("playing {} datagrams over {:.1f} s to traffic port {}, weather port {}, speed {}{}",
                           recording.datagrams.size(), length / speed, options.trafficPort, options.weatherPort, speed,
                           options.loop ? ", looping" : ""));

  Flood flood(options.faults.floodPerSecond, options, counts);
  std::optional<Held> held;
  const auto start = std::chrono::steady_clock::now();
  const double startUnix = unixNow();
  int sequence = 0;
  int recordedCount = 0;
  std::size_t malformedCount = 0;
  for (int round = 0; !stop.load() && !recording.datagrams.empty(); ++round) {
    for (const auto& recorded : recording.datagrams) {
      const std::chrono::duration<double> offset((round * length + recorded.seconds) / speed);
      if (!waitUntil(stop, start + std::chrono::duration_cast<std::chrono::steady_clock::duration>(offset))) break;
      const std::uint16_t port = targetPort(recorded.port, options);
      const std::string text = epoch && recorded.port == kTrafficPort
                                   ? shiftTimestamp(recorded.text, shiftFor(*epoch, recorded.seconds,
                                                                        options.scaledClock
                                                                            ? startUnix + round * length + recorded.seconds
                                                                            : unixNow()))
                                   : recorded.text;
      const int reorderEvery = options.faults.reorderEvery;
      // The last of a round has no next one to go behind.
      if (reorderEvery > 0 && ++recordedCount % reorderEvery == 0 && !held && &recorded != &recording.datagrams.back()) {
        held = Held{text, port};
        continue;
      }
      if (!sendOne(sender, text, port)) continue;
      ++sequence;
      ++(recorded.port == kTrafficPort ? counts.traffic : recorded.port == kWeatherPort ? counts.weather : counts.other);
      if (recorded.port == kTrafficPort) flood.offer(text);
      injectFaults(sender, options.faults, sequence, recorded, text, port, malformedCount);
      if (held) sendHeld(sender, *held, options, counts);
      held.reset();
    }
    if (!options.loop) break;
  }
  net::closeSocket(socket);
  say(console, fmt::format("played {} traffic and {} weather datagrams", counts.traffic.load(), counts.weather.load()));
}

}  // namespace orv::standin
