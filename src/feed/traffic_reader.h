#pragma once
// The "Traffic Reader": RealTraffic's aircraft reports on UDP 49005, one a datagram, handed
// to the decoding.
#include <cstdint>

#include "feed/traffic_decoder.h"
#include "feed/udp_reader.h"

namespace orv {

inline constexpr std::uint16_t kTrafficPort = 49005;

class TrafficReader final : public UdpReader {
 public:
  explicit TrafficReader(TrafficDecoder& decoder) : decoder_(decoder) {}
  void processDatagram() override;
  void stopped() override;

 private:
  TrafficDecoder& decoder_;
};

inline TrafficReader gTrafficReader{gTrafficDecoder};

// The thread body; local: RealTraffic runs on this computer, so only 127.0.0.1 is read and
// no datagram is taken for a repeat.
void gf_startTrafficReader(std::uint16_t port, bool local);

}  // namespace orv
