#pragma once
// The folder scan: the aircraft.cfg files of the user's installed liveries and AI packages.

namespace orv {

// Walks the livery folders and writes what it finds to output/LiveriesScanned.xml.
void lf_scanLiveries();

}  // namespace orv
