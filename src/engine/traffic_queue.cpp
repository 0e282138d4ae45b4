#include "engine/traffic_queue.h"

namespace orv {

bool TrafficQueue::post(TrafficMsg&& msg) {
  std::lock_guard lock(mutex_);
  if (!feedEnabled_) return false;
  queue_.push_back(std::move(msg));
  return true;
}

std::size_t TrafficQueue::take(std::size_t limit, TrafficMsg* out) {
  std::lock_guard lock(mutex_);
  std::size_t n = 0;
  for (; n < limit && !queue_.empty(); ++n) {
    out[n] = std::move(queue_.front());
    queue_.pop_front();
  }
  return n;
}

void TrafficQueue::setEnabled(bool enabled) {
  std::lock_guard lock(mutex_);
  feedEnabled_ = enabled;
}

bool TrafficQueue::enabled() const {
  std::lock_guard lock(mutex_);
  return feedEnabled_;
}

void TrafficQueue::clear() {
  std::lock_guard lock(mutex_);
  queue_.clear();
}

std::size_t TrafficQueue::size() const {
  std::lock_guard lock(mutex_);
  return queue_.size();
}

}  // namespace orv
