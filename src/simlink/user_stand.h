#pragma once
// The stand under the user aircraft: shown on the window while the user stands on one, and
// remembered for the park airport when a flight ends on it.
#include <string>

#include "engine/geodesy.h"

namespace orv {

// The stand under the user at the last position block, empty when none. SimClient thread only.
inline std::string gUserStand;

// The id of the stand at this position, or empty. The stand table and its search come with
// the parking subsystem; until it lands no stand is ever found.
std::string lf_findUserStandPending(LatLon position);

// After each position block: the window's stand text follows the stand under the user.
void lf_followUserStand(LatLon position);

// On a new flight and when the session ends: a user standing still on a stand of the park
// airport leaves that stand in the head entry of the park airport list.
void lf_rememberUserStand();

// At the reset of a run.
void gf_clearUserStand();

}  // namespace orv
