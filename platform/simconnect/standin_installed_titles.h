#pragma once
// The titles a simulator installation can create, kept in a file beside the scenario: a JSON
// array of {"title", "model"} (the model is the title's ATC model), as the data build writes it
// for its set of installed liveries.
#include <filesystem>
#include <vector>

#include "platform/simconnect/standin_scenario.h"

namespace orv::standin {

// Appends the file's titles; false, with nothing appended, when the file does not exist. A file
// that cannot be read or holds anything else throws ScenarioError naming the file and the place.
bool readInstalledTitles(const std::filesystem::path& file, std::vector<TitleEntry>& titles);

}  // namespace orv::standin
