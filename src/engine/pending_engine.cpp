#include "engine/pending_engine.h"

namespace orv {

void lf_clearLiveAtStand(std::int32_t) {}
std::string lf_standName(std::int32_t sid) { return std::to_string(sid); }
void lf_onLiveParksAtStand(LiveAc&) {}

}  // namespace orv
