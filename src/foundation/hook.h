#pragma once
// A call from a lower layer into one above it that it must not name: the program binds the
// function once, before the threads that call it start; unbound, a call does nothing. Atomic,
// so that a test or a restart may bind anew while another thread calls.
#include <atomic>

namespace orv {

template <class... Args>
class Hook {
 public:
  using Fn = void (*)(Args...);

  constexpr Hook() = default;
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;

  void set(Fn fn) { fn_.store(fn); }
  void operator()(Args... args) const {
    if (Fn fn = fn_.load()) fn(args...);
  }

 private:
  std::atomic<Fn> fn_{nullptr};
};

}  // namespace orv
