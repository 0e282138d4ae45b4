#pragma once
// The scan of the user's add-on airports: recognised by package, path and file name, with
// their stands read from the simulator or from BGL files.

namespace orv {

// Scans the add-on airports and writes their airport files under airports/.
void lf_scanAirports();

}  // namespace orv
