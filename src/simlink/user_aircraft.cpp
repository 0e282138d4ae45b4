#include "simlink/user_aircraft.h"

#include <mutex>

#include "engine/engine_tables.h"

namespace orv {

// The requests themselves are sent by the simulator session; until it is bound, the
// replies are what the session (or a test) last wrote into gUserData.
UserBlock lf_requestUserPosition() {
  std::lock_guard lock(gSimMutex);
  return gUserData;
}

void lf_requestUserTitleAndModel() {}

bool lf_requestGroundAirData() { return true; }

}  // namespace orv
