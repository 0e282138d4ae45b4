#pragma once
// The engine's fixed-rate requests about AI objects: the aircraft within range and the static
// data of a new object. A refusal is logged and ends the run.
#include <cstdint>

namespace orv {

void lf_requestAircraftInRange();
void lf_requestStaticData(std::uint32_t objectid);

}  // namespace orv
