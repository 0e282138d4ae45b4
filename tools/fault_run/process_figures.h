#pragma once
// Figures of this process that show a leak, and the datagrams the system dropped for a UDP
// socket because its reader fell behind (Linux: /proc).
#include <algorithm>
#include <cstdint>
#include <string>

namespace orv::faultrun {

// Under the address sanitizer freed memory stays resident for a while (its quarantine), so
// that resident memory tells nothing of a leak; its leak check at the end of the process does.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kAddressSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kAddressSanitizer = true;
#else
inline constexpr bool kAddressSanitizer = false;
#endif
#else
inline constexpr bool kAddressSanitizer = false;
#endif

// Resident memory grown by no more than 8 MB or a tenth, whichever is more; always under the
// address sanitizer.
inline bool memoryFlat(long beforeKb, long afterKb) {
  return kAddressSanitizer || afterKb - beforeKb <= std::max<long>(8 * 1024, beforeKb / 10);
}

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
