#include "engine/position_exchange.h"

namespace orv {

void PositionExchange::handOver() {
  std::unique_lock lock(mutex_, std::try_to_lock);
  if (lock.owns_lock()) std::swap(engine_, client_);
  engine_.clear();
}

void PositionExchange::take(std::vector<PositionOut>& out) {
  out.clear();
  std::lock_guard lock(mutex_);
  std::swap(out, client_);
}

std::size_t PositionExchange::handedOver() {
  std::lock_guard lock(mutex_);
  return client_.size();
}

void PositionExchange::reserve(std::size_t n) {
  engine_.reserve(n);
  std::lock_guard lock(mutex_);
  client_.reserve(n);
}

void PositionExchange::clear() {
  engine_.clear();
  std::lock_guard lock(mutex_);
  client_.clear();
}

}  // namespace orv
