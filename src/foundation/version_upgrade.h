#pragma once
// Brings parameters.xml of an older program version up to date at each start.

namespace orv {

// Reads the parameters; on a first start asks for both scans; from a version too old to
// convert, starts again with defaults.
void gf_readAndUpgradeParameters();

// Marks the stored version as the running one and clears what older versions left behind.
// True when the stored parameters are too old to be kept.
bool lf_updateVersion();

}  // namespace orv
