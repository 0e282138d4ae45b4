#pragma once
// Detection of the chosen simulator's installation, when the user has not set its path.

namespace orv {

// Finds the install path of the chosen simulator and stores it; false when none is found,
// which stops the run with a user error.
bool lf_detectInstallPath();

}  // namespace orv
