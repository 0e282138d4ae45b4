#pragma once
// The positions of one engine step, handed to the SimClient thread, which sends the latest
// ones at the next simulator frame. Two buffers are swapped, so neither side allocates.
#include <mutex>
#include <vector>

#include "engine/live_aircraft.h"

namespace orv {

class PositionExchange {
 public:
  PositionExchange() = default;
  PositionExchange(const PositionExchange&) = delete;
  PositionExchange& operator=(const PositionExchange&) = delete;

  // Run thread: the buffer of the step being made; no lock, no other thread touches it.
  std::vector<PositionOut>& engine() { return engine_; }
  // Run thread, at the end of a step: hands the step's positions over if the client is not
  // taking the last ones right now, else drops them, since the next step brings newer ones.
  void handOver();
  // SimClient thread: swaps the handed-over positions into `out` (emptied first).
  void take(std::vector<PositionOut>& out);
  // How many positions wait for the client.
  std::size_t handedOver();
  void reserve(std::size_t n);
  // Both halves thrown away: the flight stopped or the run ends.
  void clear();

 private:
  std::vector<PositionOut> engine_;
  // A leaf: nothing else is locked while it is held.
  std::mutex mutex_;
  std::vector<PositionOut> client_;
};

inline PositionExchange gPositionOut;

}  // namespace orv
