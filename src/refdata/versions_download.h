#pragma once
// Downloads and versions: the reference data on the download site against what this
// computer holds.

namespace orv {

// Compares the versions of the program and its data files with those of the download site
// and fetches what is newer; false ends the run.
bool lf_checkVersionsAndDownload();

}  // namespace orv
