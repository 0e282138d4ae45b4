#pragma once
// The checks of a built dbase, run on the tables as the program has read them: every known
// registration names a real airline and model, and the models that are kept apart on the
// ground by their size have a wing span.
#include <cstddef>
#include <string>
#include <vector>

namespace orv {

struct DbaseCheck {
  std::size_t registrations = 0;
  std::size_t models = 0;
  std::size_t modelsWithWingspan = 0;
  std::size_t airlines = 0;
  std::vector<std::string> faults;  // one line each, empty when the dbase passes
};

// commonTypes: how many of the models most used by the registrations must have a wing span.
DbaseCheck checkDbaseTables(std::size_t commonTypes);

}  // namespace orv
