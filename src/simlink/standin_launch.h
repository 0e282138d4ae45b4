#pragma once
// On a machine without Microsoft Flight Simulator (a build without the SDK) the process
// serves SimConnect with the stand-in simulator: it runs in real time from the default
// scenario, a user aircraft parked at Frankfurt, or from the file given by --scenario FILE.
#include <string>
#include <vector>

namespace orv {

// The default scenario, compiled in from platform/simconnect/scenarios/default_eddf.json.
extern const char* const kDefaultStandinScenario;

// The file of "--scenario FILE", or empty.
std::string lf_scenarioOption(const std::vector<std::string>& args);

// "--time-scale N": simulated seconds per wall second, for the stand-in's clock and the run
// loop's (a replay faster than real time); 1 without it. The last one wins. A value that is not
// a number above 0 and at most 100 throws std::runtime_error with the text the user sees.
double lf_timeScaleOption(const std::vector<std::string>& args);

// Chooses the SimConnect server and logs it: on Windows SimConnect.dll when one is found, else
// the stand-in only with --scenario; elsewhere always the stand-in. Starts the stand-in when it
// serves and logs which scenario it plays; nothing when the SDK is linked.
// A scenario that can't be read throws std::runtime_error naming the file and the place.
void gf_startStandinSimulator(const std::vector<std::string>& args);
// Stops it, if it runs.
void gf_stopStandinSimulator();

}  // namespace orv
