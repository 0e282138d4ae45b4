#pragma once
// The catalogue of installed liveries that matching chooses from: read from
// output/LiveriesScanned.xml and indexed once per process.
#include <filesystem>

#include "liveries/catalogue_file.h"

namespace orv {

// Reads the catalogue, builds every index of livery_indexes.h, the similar-model lists, the
// reports per category and of generic liveries, and frees the read list. Once per process: a
// new start of the run cycle only logs that it was done. Read errors reach the caller as
// UserErrorException.
void gf_processScannedLiveries(const std::filesystem::path& file = kLiveriesScannedFile);

}  // namespace orv
