#pragma once
// Which airport is the park airport as the user's aircraft moves: on the ground the airport it
// stands at, in the air the nearest listed airport in sight; its file loaded into the stand
// table, and the stand the user's aircraft uses kept free.
#include <string>
#include <string_view>

#include "foundation/fixed_code.h"

namespace orv {

// The park airport's code; empty for none. Run thread only.
inline FixedCode<4> gv_parkIcao;

// The periodic step, every 16 seconds, and once with atStart at the start of a run.
void lf_parkingStep(bool atStart);
// Makes the catalogue airport the park airport; false when the catalogue doesn't know it.
bool setParkAirport(std::string_view icao);
// Leaves the park airport: its live aircraft on the ground and its stands go.
void clearParkAirport();
// Loads the park airport's file into the stand table; empty, or the text of the failure.
std::string lf_readParkedFile();
// After a failed load: as if no park airport had been chosen, so the next step tries anew.
void failedParkFile();
// The id of the stand within 55 m of the user's aircraft on the ground; empty when there is none.
std::string userStandAt(double lat, double lon);
// Marks the reserved stand, and the stand the user stands on, as reserved.
void reserveStands();
// At the reset of a run: no park airport, no file wanted.
void lf_resetParkAirportSight();

}  // namespace orv
