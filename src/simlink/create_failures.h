#pragma once
// Liveries that the simulator refused to create. Too many of them means the user's livery
// catalogue does not fit the simulator, and the run ends with error 81.
#include <cstddef>

#include "engine/live_aircraft.h"
#include "liveries/failed_titles.h"

namespace orv {

inline constexpr std::size_t kMaxFailedTitles = 20;

// A creation the simulator refused; throws error 81 at the 20th refused title.
void gf_reportCreateFailed(const AcRecord& ac);

}  // namespace orv
