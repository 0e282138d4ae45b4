#pragma once
// The catalogue of installed liveries that matching chooses from.

namespace orv {

// Builds the catalogue from output/LiveriesScanned.xml.
void lf_processScannedLiveries();

}  // namespace orv
