#pragma once
// A queue that hands items from one thread to another. It owns its mutex, and that mutex is
// a leaf: nothing else is locked while it is held, so it can be used under any other lock.
#include <cstddef>
#include <mutex>
#include <utility>
#include <vector>

namespace orv {

template <class T>
class HandOverQueue {
 public:
  HandOverQueue() = default;
  HandOverQueue(const HandOverQueue&) = delete;
  HandOverQueue& operator=(const HandOverQueue&) = delete;

  void post(T item) {
    std::lock_guard lock(mutex_);
    items_.push_back(std::move(item));
  }
  template <class It>
  void post(It first, It last) {
    std::lock_guard lock(mutex_);
    items_.insert(items_.end(), first, last);
  }
  // Swaps everything queued into `out` (emptied first), oldest first. Swapping keeps both
  // sides' capacity, so a steady flow allocates nothing.
  void takeAll(std::vector<T>& out) {
    out.clear();
    std::lock_guard lock(mutex_);
    std::swap(out, items_);
  }
  std::vector<T> takeAll() {
    std::vector<T> out;
    takeAll(out);
    return out;
  }
  void clear() {
    std::lock_guard lock(mutex_);
    items_.clear();
  }
  void reserve(std::size_t n) {
    std::lock_guard lock(mutex_);
    items_.reserve(n);
  }
  std::size_t size() const {
    std::lock_guard lock(mutex_);
    return items_.size();
  }
  bool empty() const { return size() == 0; }

 private:
  mutable std::mutex mutex_;
  std::vector<T> items_;
};

}  // namespace orv
