#include "simlink/sim_session.h"

#include <mutex>

#include "engine/sim_notice_queue.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "simlink/sim_run_state.h"
#include "simlink/sim_dispatch.h"
#include "simlink/sim_queues.h"
#include "simlink/user_aircraft.h"
#include "simlink/user_model.h"
#include "simlink/user_stand.h"

namespace orv {

void gf_postNotice(const SimNotice& notice) {
  gSimNotices.post(notice);
}

bool gf_simSessionOpen() {
  std::lock_guard lock(gSimMutex);
  return gv_simHandle != nullptr;
}

void lf_simRequestError() {
  setMessage("SimConnect request error", true);
  gv_simRequestFailed = true;
  requestStop(ExitReason::SimConnectError, 9);
}

void gf_resetSimLink() {
  gv_simRunning = false;
  gv_flightRunning = false;
  gv_flightPaused = false;
  gv_simRequestFailed = false;
  gv_secondTick = false;
  gv_userObjectId = 2;
  gf_clearSimQueues();
  gf_clearUserAircraft();
  gf_clearUserModel();
  gf_clearUserStand();
  lf_resetDispatchState();
}

}  // namespace orv
