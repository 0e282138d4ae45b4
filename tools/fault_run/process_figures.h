#pragma once
// Figures of this process that show a leak, and the datagrams the system dropped for a UDP
// socket because its reader fell behind (Linux: /proc).
#include <cstdint>
#include <string>

namespace orv::faultrun {

struct ProcessFigures {
  long residentKb = 0;  // resident memory
  int threads = 0;
  int openFiles = 0;  // descriptors: files and sockets
};

ProcessFigures processFigures();
inline double megabytes(long kb) { return static_cast<double>(kb) / 1024.0; }
std::string describe(const ProcessFigures& f);

// Datagrams dropped so far for the UDP socket bound at the port; 0 when there is none.
std::uint64_t udpDrops(std::uint16_t port);

}  // namespace orv::faultrun
