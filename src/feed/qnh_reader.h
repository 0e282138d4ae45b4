#pragma once
// The "QNH Reader": RealTraffic's weather on UDP 49004, one JSON object a datagram, of which
// the QNH is taken: in hectopascal, or in hundredths of an inch of mercury above 1100.
#include <atomic>
#include <cstdint>

#include "engine/qnh.h"
#include "feed/udp_reader.h"

namespace orv {

inline constexpr std::uint16_t kQnhPort = 49004;

class QnhReader final : public UdpReader {
 public:
  void processDatagram() override;
  void stopped() override;

  std::atomic<std::int32_t> lastQnh{kStandardQnh};
};

inline QnhReader gQnhReader;

// The thread body; it reads at 127.0.0.1 only when RealTraffic runs on this computer.
void gf_startQnhReader(std::uint16_t port);

}  // namespace orv
