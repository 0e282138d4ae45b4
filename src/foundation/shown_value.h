#pragma once
// A value the main window shows, written by any thread and read by the painter on the window
// thread. Each value knows the band that shows it: writing a different value asks for that
// band's repaint, writing the same value does nothing, so per-second refreshes cost no repaint.
// The window itself is not named here: every subsystem may publish, and only the program
// knows the window, so it sets the repaint hook at start-up.
#include <atomic>
#include <mutex>
#include <string>
#include <string_view>

#include "foundation/hook.h"

namespace orv {

// The bands of the main window, top to bottom.
enum class ShownBand { Title, Status, Controls, ParkAirport, Message };

// Asks for a band's repaint, from any thread; nothing until the program has bound it.
inline constinit Hook<ShownBand> gf_repaint;

template <class T, ShownBand B>
class ShownValue {
 public:
  static constexpr ShownBand band = B;

  constexpr explicit ShownValue(T initial) : value_(initial) {}
  ShownValue(const ShownValue&) = delete;
  ShownValue& operator=(const ShownValue&) = delete;

  T load() const { return value_.load(); }
  // Stores without a repaint; true when the value changed. For writers that change
  // several values of one band and repaint it once.
  bool store(T v) { return value_.exchange(v) != v; }
  // Stores and repaints the band when the value changed.
  bool show(T v) {
    const bool changed = store(v);
    if (changed) gf_repaint(B);
    return changed;
  }

 private:
  std::atomic<T> value_;
};

// A text of the window. Its own mutex keeps the painter from reading it half-written; the
// repaint is asked for outside the mutex so that a painter never waits for a writer.
template <ShownBand B>
class ShownText {
 public:
  static constexpr ShownBand band = B;

  ShownText() = default;
  ShownText(const ShownText&) = delete;
  ShownText& operator=(const ShownText&) = delete;

  std::string load() const {
    std::lock_guard lock(mutex_);
    return text_;
  }
  bool empty() const {
    std::lock_guard lock(mutex_);
    return text_.empty();
  }
  bool store(std::string_view text) {
    std::lock_guard lock(mutex_);
    if (text_ == text) return false;
    text_.assign(text);
    return true;
  }
  bool show(std::string_view text) {
    const bool changed = store(text);
    if (changed) gf_repaint(B);
    return changed;
  }

 private:
  mutable std::mutex mutex_;
  std::string text_;
};

}  // namespace orv
