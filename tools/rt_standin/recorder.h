#pragma once
// Listens on the two UDP ports of the feed and writes what arrives as a recording, so that a
// session with the real RealTraffic can be replayed later.
#include <atomic>
#include <cstdint>
#include <ostream>

#include "console.h"
#include "platform/net/socket_layer.h"
#include "recording.h"

namespace orv::standin {

struct RecordOptions {
  std::uint16_t trafficPort = kTrafficPort;
  std::uint16_t weatherPort = kWeatherPort;
  bool anyAddress = false;  // bind at any address instead of 127.0.0.1
};

struct RecordCounts {
  std::atomic<int> datagrams{0};
};

struct RecorderSockets {
  net::Socket traffic = net::kNoSocket;
  net::Socket weather = net::kNoSocket;
};

// Binds both ports; throws std::runtime_error naming the port and the error.
RecorderSockets openRecorder(const RecordOptions& options);

// Writes "# epoch" and then one line a datagram, under the standard port numbers, until stop;
// closes the sockets. Each datagram is counted once its line is written.
void record(RecorderSockets& sockets, std::ostream& out, Console& console, const std::atomic<bool>& stop,
            RecordCounts& counts);

}  // namespace orv::standin
