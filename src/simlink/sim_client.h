#pragma once
// The SimClient thread: it opens the session "Orvane" (retrying while no simulator is there),
// declares what the program reads and writes, and then calls the dispatcher every
// millisecond until it is asked to stop. One such thread per run.
namespace orv {

// Starts the thread, replacing the one of an earlier run (which is asked to stop and joined).
void lf_startSimClient();
// Asks the thread to stop; it leaves between two dispatch calls. Does not wait.
void lf_stopSimClient();
// Asks the thread to stop and waits for it; at the end of the process.
void lf_joinSimClient();

}  // namespace orv
