#pragma once
// One run of the stand-in: the link, the player and the recorder side by side, each on its own
// thread, until the duration passes, stop is set, or playing ends with nothing else to do.
#include <atomic>

#include "console.h"
#include "options.h"

namespace orv::standin {

// 0 when all went well, 1 when a part failed. Throws RecordingError for a bad recording and
// std::runtime_error when a port can't be had, before anything starts.
int runStandin(const StandinOptions& options, Console& console, std::atomic<bool>& stop);

}  // namespace orv::standin
