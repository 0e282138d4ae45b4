#pragma once
// A flood of broken datagrams beside the recording, at a steady rate on both ports, from a
// thread of its own; each is made from the latest good traffic line that the player offers.
#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "player.h"

namespace orv::standin {

class Flood {
 public:
  // Starts sending at once when perSecond is above 0, else never; throws std::runtime_error
  // when no socket can be had.
  Flood(int perSecond, const PlayOptions& options, PlayCounts& counts);
  ~Flood();
  Flood(const Flood&) = delete;
  Flood& operator=(const Flood&) = delete;

  // A traffic line that was sent; lines the decoder would pass over as vehicles, and lines
  // without a time stamp, are not taken as the base of broken ones.
  void offer(std::string_view trafficLine);

 private:
  void run(int perSecond, std::uint16_t trafficPort, std::uint16_t weatherPort);

  PlayCounts& counts_;
  std::mutex mutex_;
  std::string base_;
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

}  // namespace orv::standin
