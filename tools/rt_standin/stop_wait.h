#pragma once
// Waiting that a stop request cuts short. The request may come from a signal handler,
// which can only set an atomic flag; so the wait looks at the flag in short steps.
#include <atomic>
#include <chrono>

namespace orv::standin {

// False when stop was set before the time came.
bool waitUntil(const std::atomic<bool>& stop, std::chrono::steady_clock::time_point when);
bool waitFor(const std::atomic<bool>& stop, std::chrono::duration<double> span);

}  // namespace orv::standin
