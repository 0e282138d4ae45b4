#pragma once
// The process: one instance per user, the log, the window and its message loop, and a
// start-up thread for each run.
#include <filesystem>
#include <string>
#include <vector>

namespace orv {

// Returns the process exit code; -1 when another instance runs. Options besides those of
// the command line: --seconds N closes the window after N seconds, as its close button would;
// --scenario FILE plays that scenario on the stand-in simulator instead of the default one.
int lf_runProcess(const std::filesystem::path& workingFolder, const std::vector<std::string>& args);

}  // namespace orv
