#pragma once
// Decoding of RealTraffic's aircraft reports: one comma-separated line a datagram becomes a
// TrafficMsg for the engine, or is dropped. Runs on the Traffic Reader thread; the cheapest
// tests stand first, so most of the world's traffic is dropped before any string is built.
#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "engine/live_aircraft.h"

namespace orv {

// Callsigns seen in the feed, collected while gCollectCallsigns is set (static parking
// takes them over under gLiveCallsignsMutex).
inline std::atomic<bool> gCollectCallsigns{false};
inline std::mutex gLiveCallsignsMutex;
inline std::set<std::string> gLiveCallsignsIncoming;

class TrafficDecoder {
 public:
  static constexpr std::size_t kMaxFields = 64;

  // The datagram as text; the fields stay views into it while it is decoded.
  void processLine(std::string_view line);

  // Written by the run thread (user position every 5 seconds, the park airport when it
  // changes) and by the QNH Reader; read here at the next line.
  void setUserPosition(double lat, double lon);
  void setParkAirport(double lat, double lon, double elevation);
  void clearParkAirport();
  std::atomic<std::int32_t> qnh{1013};

  // Lines that reached the engine's queue, and lines that failed with a log entry.
  std::uint64_t queuedCount() const { return queued_; }
  std::uint64_t failedCount() const { return failed_; }

 private:
  void processLineSub();
  // Splits on until `count` fields stand, or the line ends; missing fields read as empty.
  void splitUpTo(std::size_t count);
  static constexpr std::size_t kRangeFields = 15;
  // False when the line is to be dropped; throws with the log text when it can't be read.
  bool correctAltitude(double gs, double& alt) const;

  std::array<std::string_view, kMaxFields> fields_{};
  std::string_view line_;
  std::size_t fieldCount_ = 0;
  const char* rest_ = nullptr;  // the unsplit rest of the line; nullptr when all is split
  std::atomic<double> userLat_{0.0};
  std::atomic<double> userLon_{0.0};
  // The park airport: chosen or not, its position, its elevation (the airportElev of the
  // decoding); a plain flag first, so a reader never sees a half-written airport as chosen.
  std::atomic<bool> parkChosen_{false};
  std::atomic<double> parkLat_{0.0};
  std::atomic<double> parkLon_{0.0};
  std::atomic<double> parkElev_{0.0};
  double lastTimestamp_ = 0.0;
  std::uint64_t queued_ = 0;
  std::uint64_t failed_ = 0;
};

}  // namespace orv

namespace orv {

// The decoding state of the Traffic Reader; the run thread refreshes its user position.
inline TrafficDecoder gTrafficDecoder;

}  // namespace orv
