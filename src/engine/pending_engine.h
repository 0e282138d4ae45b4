#pragma once
// Steps of the engine whose subsystems are not built yet: spawning, motion, stands, the
// followed object. Each does the least that keeps the records' invariants; spawning, motion
// and parking replace them.
#include <cstdint>
#include <string>

#include "engine/live_aircraft.h"

namespace orv {

// Spawning: a record in "buffer" collects samples until the gates let it be created.
void lf_bufferStep(LiveAc& ac);
// Planning: passes the samples that are due, so that stream[0] is the one last reached.
void nextPosMain(LiveAc& ac);
// Motion: shows the aircraft at the sample last reached.
void lf_motionStep(LiveAc& ac);
// Parked configuration of lights and levers.
void lf_parkedConfig(AcRecord& ac);
// The next placement of static parking while its list is not empty.
void lf_placeNextStatic();
// Stands: the stand no longer holds a live aircraft; its name for log lines; the static list
// entry and a static aircraft on a stand that a live one takes.
void lf_clearLiveAtStand(std::int32_t sid);
std::string lf_standName(std::int32_t sid);
void lf_onLiveParksAtStand(LiveAc& ac);
// The object that the window follows is gone.
void lf_stopFollowing(std::uint32_t objectid);

}  // namespace orv
