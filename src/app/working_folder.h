#pragma once
// The working folder holds docs, input, output and airports. It is the folder given on the
// command line (--workdir) or in ORVANE_HOME, else the program's installation folder.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orv {

std::filesystem::path lf_workingFolder(const std::vector<std::string>& args);

}  // namespace orv

namespace orv {

// Makes the folders of the working tree that a run writes into, with their parents.
void lf_createFolders();

}  // namespace orv
