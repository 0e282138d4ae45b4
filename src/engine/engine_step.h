#pragma once
// One 10 ms step of the engine, run by the run thread while a flight is running.
namespace orv {

void lf_handleAddingStack();
// Advances one aircraft; true when its record is to leave the table at the end of the step.
// An exception of one aircraft is logged and the others go on.
struct LiveAc;
bool updateLiveAc(LiveAc& ac);
// The messages that the simulator client queued for the engine; also taken while no flight runs.
void lf_takeSimNotices();

}  // namespace orv
