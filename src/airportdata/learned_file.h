#pragma once
// The user's learned file of an airport laid over the stands of its archived file. A handmade
// learned file replaces the archived stands altogether.
#include <filesystem>
#include <vector>

#include "airportdata/park_airport_file.h"
#include "airportdata/stands.h"

namespace orv {

// Never fails towards its caller: what goes wrong is logged, and the stands keep what was
// merged by then. An unreadable file is kept as a generation ("EHAM0.xml").
void lf_readLearned(const std::filesystem::path& path, const ApfAirport& airport, std::vector<Stand>& stands,
                    bool& handmade);

}  // namespace orv
