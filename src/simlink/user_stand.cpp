#include "simlink/user_stand.h"

#include <mutex>

#include "foundation/status_values.h"
#include "simlink/sim_run_state.h"
#include "simlink/sim_session.h"
#include "simlink/user_aircraft.h"

namespace orv {
namespace {

// The user at this ground speed or slower stands on the stand rather than passing it.
constexpr double kStandStillKnots = 2.0;

// Where the stand goes in the park airport list; that list comes with parking as well.
void lf_keepStandForParkAirportPending(const std::string&) {}

}  // namespace

std::string lf_findUserStandPending(LatLon) { return {}; }

void lf_followUserStand(LatLon position) {
  const std::string s = lf_findUserStandPending(position);
  if (s != gUserStand) gSimStatus.stand.show(s);
  gUserStand = s;
}

void lf_rememberUserStand() {
  if (!gv_userAircraftKnown.load()) return;
  UserBlock user;
  {
    std::lock_guard lock(gSimMutex);
    user = gUserData;
  }
  // This runs on the SimClient thread, so it reads its own block rather than the run
  // thread's snapshot of it.
  if (user.groundVelocity > kStandStillKnots) return;
  const std::string s = lf_findUserStandPending(LatLon{user.lat, user.lon});
  if (!s.empty()) lf_keepStandForParkAirportPending(s);
}

void gf_clearUserStand() {
  gUserStand.clear();
  gSimStatus.stand.show("");
}

}  // namespace orv
