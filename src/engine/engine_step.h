#pragma once
// One 10 ms step of the engine, run by the run thread while a flight is running.
namespace orv {

void lf_handleAddingStack();
// The messages that the simulator client queued for the engine; also taken while no flight runs.
void lf_takeSimNotices();

}  // namespace orv
