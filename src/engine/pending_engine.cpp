#include "engine/pending_engine.h"

#include "engine/engine_tables.h"

namespace orv {

void lf_bufferStep(LiveAc&) {}

void nextPosMain(LiveAc& ac) {
  while (ac.stream.size() > 1 && gv_tick >= ac.stream[1].tick) ac.stream.pop_front();
}

void lf_motionStep(LiveAc& ac) {
  const Sample& s = ac.stream.front();
  ac.lat = s.lat;
  ac.lon = s.lon;
  ac.alt = s.alt;
  ac.heading = s.track / kDegreesPerRadian;
}

void lf_parkedConfig(AcRecord&) {}
void lf_placeNextStatic() {}
void lf_clearLiveAtStand(std::int32_t) {}
std::string lf_standName(std::int32_t sid) { return std::to_string(sid); }
void lf_onLiveParksAtStand(LiveAc&) {}
void lf_stopFollowing(std::uint32_t) {}

}  // namespace orv
