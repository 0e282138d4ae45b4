#pragma once
// Announcing an update of static parking: the user is told when it comes, and the controls
// that steer parking are blocked until both of its phases have passed.
#include <cstdint>

namespace orv {

// `secondsNow` is the main loop's second count; the update's first phase comes at the next
// multiple of 15 seconds.
void lf_announceStaticUpdate(std::int32_t secondsNow);

}  // namespace orv
