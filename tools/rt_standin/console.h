#pragma once
// The stand-in's output: one line at a time from several threads, each stamped with the
// seconds since the start, so that a person can line it up with Orvane's log.
#include <chrono>
#include <mutex>
#include <ostream>
#include <string_view>

namespace orv::standin {

struct Console {
  explicit Console(std::ostream& stream) : out(stream) {}
  std::ostream& out;
  std::mutex mutex;
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

void say(Console& console, std::string_view text);

}  // namespace orv::standin
