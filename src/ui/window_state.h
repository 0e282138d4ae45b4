#pragma once
// What the main window shows, written by any thread and read by the painter on the window
// thread. Each value knows the band that shows it: writing a different value invalidates
// that band, writing the same value does nothing, so per-second refreshes cost no repaint.
#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/window/window_layer.h"

namespace orv {

template <class T, Band B>
class ShownValue {
 public:
  static constexpr Band band = B;

  constexpr explicit ShownValue(T initial) : value_(initial) {}
  ShownValue(const ShownValue&) = delete;
  ShownValue& operator=(const ShownValue&) = delete;

  T load() const { return value_.load(); }
  // Stores without invalidating; true when the value changed. For writers that change
  // several values of one band and invalidate it once.
  bool store(T v) { return value_.exchange(v) != v; }
  // Stores and invalidates the band when the value changed.
  bool show(T v) {
    const bool changed = store(v);
    if (changed) gf_window().invalidate(B);
    return changed;
  }

 private:
  std::atomic<T> value_;
};

// A text of the window. Its own mutex keeps the painter from reading it half-written; the
// band is invalidated outside the mutex so that a painter never waits for a writer.
template <Band B>
class ShownText {
 public:
  static constexpr Band band = B;

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
    if (changed) gf_window().invalidate(B);
    return changed;
  }

 private:
  mutable std::mutex mutex_;
  std::string text_;
};

// Feed and weather state: 1 data flows, 2 no data lately, 3 stopped.
inline constexpr int kFeedFlowing = 1;
inline constexpr int kFeedQuiet = 2;
inline constexpr int kFeedStopped = 3;

struct WindowState {
  WindowState();
  WindowState(const WindowState&) = delete;
  WindowState& operator=(const WindowState&) = delete;

  // Status band: simulator side.
  ShownValue<bool, Band::Status> simConnected{false};
  ShownValue<bool, Band::Status> simRunningShown{false};  // last value of the "Sim" event
  ShownText<Band::Status> simName;                        // simulator and its version
  // The program's holder of gv_userModelKnown: the title is drawn as a known aircraft.
  ShownValue<bool, Band::Status> userModelKnown{false};
  ShownText<Band::Status> titleText;  // the user aircraft's title, or the text that replaces it
  ShownText<Band::Status> standText;  // the stand under the user aircraft

  // Status band: feed side.
  ShownValue<bool, Band::Status> rtWaiting{true};  // the run has not reached the wait for RealTraffic
  ShownValue<bool, Band::Status> rtConnected{false};  // RealTraffic link up, or no link needed
  // The program's holder of gv_rtEditionText: "RT {} edition: {}", empty when unknown.
  ShownText<Band::Status> rtEditionText;
  ShownValue<int, Band::Status> trafficStatus{kFeedStopped};
  ShownValue<int, Band::Status> weatherStatus{kFeedStopped};
  ShownValue<unsigned, Band::Status> liveryCount{0};
  ShownValue<unsigned, Band::Status> simAddonCount{0};
  ShownValue<unsigned, Band::Status> thirdPartyCount{0};
  ShownValue<int, Band::Status> qnhShown{0};
  ShownValue<unsigned, Band::Status> liveCount{0};  // live aircraft in the simulator, not parked

  // Controls band.
  ShownValue<int, Band::Controls> minutesToUpdate{20};
  // Parking at the park airport is possible at all; the countdown is shown only then.
  ShownValue<bool, Band::Controls> parkingPossible{false};
  // The tblo package waits to be mailed.
  ShownValue<bool, Band::Controls> tbloRequest{false};
  // Result of the callsign to object id lookup, drawn beside its combo box.
  ShownText<Band::Controls> objectIdText;

  // Park airport band.
  ShownValue<unsigned, Band::ParkAirport> parkedLiveCount{0};
  ShownValue<unsigned, Band::ParkAirport> staticCount{0};
  ShownText<Band::ParkAirport> parkCode;  // empty while no park airport is set
  ShownText<Band::ParkAirport> parkName;
  ShownText<Band::ParkAirport> parkPublisher;
  ShownText<Band::ParkAirport> reservedStand;  // empty while no stand is reserved
  ShownValue<bool, Band::ParkAirport> handmadeMark{false};
  ShownValue<bool, Band::ParkAirport> fileLoadedMark{false};
  ShownValue<bool, Band::ParkAirport> reservedMark{false};
  ShownValue<bool, Band::ParkAirport> weekMark{false};
  ShownValue<bool, Band::ParkAirport> softMark{false};
  ShownValue<int, Band::ParkAirport> rtTrafficWeek{0};
  ShownText<Band::ParkAirport> qualityText;
  ShownValue<unsigned, Band::ParkAirport> standCount{0};
  ShownValue<unsigned, Band::ParkAirport> learnedUpdatesShown{0};
  // Average fit of the live parked and of the static aircraft, in hours; -1 while unset.
  ShownValue<float, Band::ParkAirport> fitParkedLive{-1.0f};
  ShownValue<float, Band::ParkAirport> fitStatic{-1.0f};
  ShownValue<int, Band::ParkAirport> maxParkShown{0};
  ShownValue<int, Band::ParkAirport> maxParkPercent{0};
  ShownValue<unsigned, Band::ParkAirport> removalsLeft{0};  // removal list entries during a static update
};

extern WindowState gWindowState;

// Window creation must not paint from a state that is not constructed yet: waits for it,
// polling every 50 ms, and gives up (false) after a second.
bool lf_waitForWindowState(std::chrono::milliseconds poll = std::chrono::milliseconds(50),
                           std::chrono::milliseconds limit = std::chrono::seconds(1));

// The per-second refresh of the aircraft counts: each band at most once, and only when one
// of its counts changed.
void lf_showAircraftCounts(unsigned live, unsigned parkedLive, unsigned statics);

// At the reset of a run: the status band as before a run has started (feeds stopped,
// waiting for RealTraffic). Invalidates the band once when anything changed.
void lf_resetStatusBand();
// No park airport: its band empty, the fit figures unset.
void lf_clearParkAirportBand();

}  // namespace orv
