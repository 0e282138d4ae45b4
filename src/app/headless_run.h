#pragma once
// One process on the headless window: open the log, make the window's controls, start a run
// on WM_START_RUN, and end when the run posts WM_END_PROGRAM. The run reads and upgrades the
// parameters, prepares the working folder and stays in its one-second cycle for a while.
#include <filesystem>
#include <string>
#include <vector>

namespace orv {

// Returns the process exit code. Options: --seconds N (length of the run, default 3).
int lf_runProcess(const std::filesystem::path& workingFolder, const std::vector<std::string>& args);

}  // namespace orv
