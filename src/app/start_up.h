#pragma once
// The start-up thread of a run: it prepares the data, waits for the simulator and the feed,
// stays as the run thread for the main loop, and closes the run down.
namespace orv {

void lf_startUpOrvane();
// Parameters, folders, versions, reference data, install path. False: the run ends here.
bool lf_prepareData();
// A production run has done its work once the data are prepared.
void lf_stopForProduction();
// The close paths: the user closes, the feed link goes, and the reason is USER CLOSED SIM
// unless the run already has one.
void lf_closeAsUser();

}  // namespace orv
