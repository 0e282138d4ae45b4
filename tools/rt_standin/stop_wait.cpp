#include "stop_wait.h"

#include <thread>

namespace orv::standin {

bool waitUntil(const std::atomic<bool>& stop, std::chrono::steady_clock::time_point when) {
  constexpr auto kStep = std::chrono::milliseconds(20);
  while (!stop.load()) {
    const auto now = std::chrono::steady_clock::now();
    if (now >= when) return true;
    std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(when - now, kStep));
  }
  return false;
}

bool waitFor(const std::atomic<bool>& stop, std::chrono::duration<double> span) {
  return waitUntil(stop, std::chrono::steady_clock::now() +
                             std::chrono::duration_cast<std::chrono::steady_clock::duration>(span));
}

}  // namespace orv::standin
