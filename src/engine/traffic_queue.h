#pragma once
// Decoded traffic from the Traffic Reader thread to the engine, and the switch that lets the
// reader append at all (off while a run starts, stops or the flight is not running).
#include <cstddef>
#include <deque>
#include <mutex>

#include "engine/live_aircraft.h"

namespace orv {

class TrafficQueue {
 public:
  TrafficQueue() = default;
  TrafficQueue(const TrafficQueue&) = delete;
  TrafficQueue& operator=(const TrafficQueue&) = delete;

  // Traffic Reader: appends while the feed is enabled; false when the message is dropped.
  bool post(TrafficMsg&& msg);
  // Engine: moves up to `limit` messages into `out`, oldest first; returns how many.
  std::size_t take(std::size_t limit, TrafficMsg* out);
  void setEnabled(bool enabled);
  bool enabled() const;
  void clear();
  std::size_t size() const;

 private:
  // gTrafficMutex, a leaf: gSimMutex or any other lock is never taken while it is held.
  mutable std::mutex mutex_;
  std::deque<TrafficMsg> queue_;
  bool feedEnabled_ = false;  // gv_feedEnabled
};

inline TrafficQueue gTrafficQueue;

}  // namespace orv
