#pragma once
// Stands: the stand no longer holds a live aircraft; its name for log lines; the static list
// entry and a static aircraft on a stand that a live one takes.
#include <cstdint>
#include <string>

#include "engine/live_aircraft.h"

namespace orv {

void lf_clearLiveAtStand(std::int32_t sid);
std::string lf_standName(std::int32_t sid);
void lf_onLiveParksAtStand(LiveAc& ac);

}  // namespace orv
