#include "engine/spawning.h"

#include "engine/engine_tick.h"

namespace orv {

void lf_bufferStep(LiveAc&) {}

void nextPosMain(LiveAc& ac) {
  while (ac.stream.size() > 1 && gv_tick >= ac.stream[1].tick) ac.stream.pop_front();
}

}  // namespace orv
