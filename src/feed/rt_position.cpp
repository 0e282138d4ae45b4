#include "feed/rt_position.h"

#include <fmt/format.h>

#include "engine/aircraft_removal.h"
#include "engine/engine_tables.h"
#include "feed/feed_readers.h"
#include "feed/rt_link.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"

namespace orv {
namespace {

double lf_radians(double degrees) { return degrees / kDegreesPerRadian; }

// Without RealTraffic the traffic stops by itself; what the simulator shows of it goes now,
// so that no aircraft stands frozen until its data would have run out.
void lf_removeAllLive() {
  for (LiveAc& ac : gLiveAc)
    if (ac.simState != kRemovingFromSim) removeAircraftFromSim(ac);
  gf_compactLiveAc();
}

}  // namespace

std::string gf_positionMessage(const UserBlock& user) {
  return fmt::format("Qs121={:.0f};{:.0f};{:.6f};{:.0f};{:.0f};{:.6f};{:.6f}\r\n", -user.pitch * 100000.0,
                     user.bank * 100000.0, user.heading, user.indicatedAlt * 1000.0, user.groundVelocity * 1000.0,
                     lf_radians(user.lat), lf_radians(user.lon));
}

std::string gf_simTimeMessage(std::int64_t seconds) { return fmt::format("Qs123={}\r\n", seconds * 1000); }

void lf_sendPosition() {
  if (!gv_rtOnThisPc) return;
  if (!gf_userPositionKnown(gUserSnapshot)) return;
  if (!gv_rtConnected.load()) {
    if (gv_exitReason.load() != ExitReason::NotYetSet) return;
    // Blocks the run thread, and the engine with it, until RealTraffic comes back; the
    // position goes at the next turn.
    if (!lf_acceptRt()) return;
    gFeedStatus.rtConnected.show(true);
    setMessage(fmt::format("{} RealTraffic re-connected", gf_timeOfDay()), true);
    clearMessage();
    return;
  }
  if (sendDataPacket(gf_positionMessage(gUserSnapshot))) return;

  gFeedStatus.rtConnected.show(false);
  if (!gv_userClosing.load()) lf_removeAllLive();
  lf_resetFeed();
  setMessage(fmt::format("{} RealTraffic gone? Wait for RealTraffic to re-connect ...", gf_timeOfDay()), true);
}

void lf_sendSimTime(std::int64_t seconds) {
  if (gv_rtConnected.load() && seconds >= 1) sendDataPacket(gf_simTimeMessage(seconds));
}

}  // namespace orv
