#pragma once
// Sends a recording to Orvane's UDP ports on 127.0.0.1 at its own pace or faster,
// with report times moved to the present and, on request, faults mixed in.
#include <atomic>
#include <cstdint>

#include "console.h"
#include "recording.h"

namespace orv::standin {

// Each counts datagrams sent from the recording: every n-th is followed by the fault; 0 never.
struct FaultOptions {
  int repeatEvery = 0;     // the same datagram again at once
  int malformedEvery = 0;  // a broken line to the same port
  int oversizeEvery = 0;   // a 16384-byte datagram to the same port
  int truncateEvery = 0;   // the datagram again, cut short, to the same port
  int reorderEvery = 0;    // the datagram held back and sent after the next one
  int floodPerSecond = 0;  // broken datagrams a second besides the recording, on both ports
};

struct PlayOptions {
  std::uint16_t trafficPort = kTrafficPort;
  std::uint16_t weatherPort = kWeatherPort;
  double speed = 1.0;  // times faster than recorded
  // --time-scale: the report times follow a clock that runs `speed` times faster from the start
  // of the play, as the program's and the simulator's do, so that reports stay as far apart as recorded.
  bool scaledClock = false;
  bool loop = false;   // start again after the end, one second later
  bool shiftTimestamps = true;
  bool verbose = false;  // show every datagram
  FaultOptions faults;
};

struct PlayCounts {
  std::atomic<int> traffic{0};
  std::atomic<int> weather{0};
  std::atomic<int> other{0};
  std::atomic<int> repeated{0};
  std::atomic<int> malformed{0};
  std::atomic<int> oversize{0};
  std::atomic<int> truncated{0};
  std::atomic<int> reordered{0};
  std::atomic<int> flooded{0};
  std::atomic<int> failed{0};
  // What Orvane must log of the broken datagrams sent, as its reader of each port says: traffic
  // lines that fail whatever else they hold, traffic lines that may instead meet a filter that
  // drops them without a word, weather lines, and datagrams too long for the receive buffer.
  std::atomic<int> trafficMustLog{0};
  std::atomic<int> trafficMayLog{0};
  std::atomic<int> weatherMustLog{0};
  std::atomic<int> overlongMustLog{0};
};

// Where a datagram recorded on a standard port goes now; other ports stay as they are.
std::uint16_t targetPort(std::uint16_t recordedPort, const PlayOptions& options);

// Returns at the end of the recording (never with loop) or when stop is set.
// Throws std::runtime_error when no socket can be had.
void play(const Recording& recording, const PlayOptions& options, Console& console, const std::atomic<bool>& stop,
          PlayCounts& counts);

}  // namespace orv::standin
