#include "app/main_loop.h"

#include <fmt/format.h>

#include <mutex>
#include <thread>

#include "app/run.h"
#include "app/run_stage.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/object_id_list.h"
#include "engine/reserved_stand.h"
#include "engine/stand_contention.h"
#include "engine/traffic_queue.h"
#include "feed/feed_status.h"
#include "feed/live_callsigns.h"
#include "feed/rt_position.h"
#include "foundation/day_and_slot.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "liveries/match_memory.h"
#include "liveries/match_summary.h"
#include "parking/park_airport_sight.h"
#include "parking/park_airports.h"
#include "parking/parking_adjustments.h"
#include "parking/parking_run_state.h"
#include "platform/desktop/desktop.h"
#include "simlink/sim_queues.h"
#include "simlink/sim_run_state.h"
#include "simlink/user_aircraft.h"
#include "ui/callsign_list.h"
#include "ui/controls.h"
#include "ui/run_requests.h"
#include "ui/static_update.h"

namespace orv {

using namespace std::chrono_literals;

namespace {

// Ticks of the not-running branch until its next slow round.
int gv_notRunningCounter = 100;
void lf_setFeedEnabled(bool enabled) { gTrafficQueue.setEnabled(enabled); }

void lf_refreshAircraftCounts() {
  unsigned live = 0, parkedLive = 0;
  for (const LiveAc& ac : gLiveAc) {
    if (ac.simState != kActive) continue;
    if (ac.flightState == kParked)
      ++parkedLive;
    else
      ++live;
  }
  lf_showAircraftCounts(live, parkedLive, static_cast<unsigned>(gParkedAc.size()));
}

// "Re-read": only when asked and no static update runs.
void lf_runRereadRequest() {
  if (!gv_reqReread.load() || gv_staticUpdateRunning.load()) return;
  std::string message;
  if (reReadParkAirports(true, message) && gf_messageArea().errorText.empty()) setMessage(message, true);
  lf_enableControl(BUTTON_REREAD.controlId, true);
  lf_enableControl(DESTINATION.controlId, true);
  gv_reqReread = false;
}

// First phase: the parking controls are blocked and the feed starts collecting callsigns;
// second phase, 15 seconds later: the update ends, the adjustments run on what was collected,
// and the controls, "Re-read" and the next announcement are free again.
void lf_advanceStaticUpdate() {
  if (!gv_staticUpdateSecondPhase) {
    lf_blockParkingControls();
    lf_clearFeedPendingData();
    gv_staticUpdateSecondPhase = true;
    return;
  }
  lf_unblockParkingControls();
  gf_clearErrorText();
  clearMessage();
  lf_adjustParking();
  gf_flushLog();
  gv_staticUpdatePending = false;
  gv_staticUpdateSecondPhase = false;
}

// What the work of one second holds, by the second's number.
struct SecondWork {
  bool parking = false;           // the periodic parking step
  bool feedStatus = false;        // refresh of the feed status display
  bool removeStaticTwin = false;  // a static aircraft that doubles a live one: multiples of 61 off the 5 s beat
  bool fiveSecond = false;        // user position to the feed, simulator time, reserved stand, re-read
  bool staticUpdate = false;      // the next phase of an announced static update
  bool every30 = false;
};

// `secondPhase`: a static update is in its second phase, which the parking step must not meet.
SecondWork lf_secondWork(int seconds, bool secondPhase) {
  SecondWork w;
  if (seconds % 5 != 0) {
    w.parking = seconds % 16 == 0 && !secondPhase;
    w.feedStatus = seconds % 59 == 0;
    w.removeStaticTwin = seconds % 61 == 0;
    return w;
  }
  w.fiveSecond = true;
  if (seconds % 15 != 0) return w;
  w.staticUpdate = true;
  w.every30 = seconds % 30 == 0;
  return w;
}

// The live aircraft in the simulator that bears this callsign, or -1.
int lf_findLiveInSimByCallsign(std::string_view cs) {
  for (std::size_t i = 0; i < gLiveAc.size(); ++i)
    if (gLiveAc[i].simState == kActive && gLiveAc[i].cs == cs) return static_cast<int>(i);
  return -1;
}

}  // namespace

void lf_resetMainLoopState() {
  gv_seconds = 0;
  gv_flightNotRunning = false;
  gv_notRunningCounter = 100;
  gv_runStage = RunStage::NotStarted;
}

void SteadyLoopClock::sleepUntil(time_point t) { std::this_thread::sleep_until(t); }

ScaledLoopClock::ScaledLoopClock(LoopClock& wall, double scale) : wall_(wall), scale_(scale), origin_(wall.now()) {}

LoopClock::time_point ScaledLoopClock::now() {
  const std::chrono::duration<double> wall = wall_.now() - origin_;
  return origin_ + std::chrono::duration_cast<std::chrono::steady_clock::duration>(wall * scale_);
}

void ScaledLoopClock::sleepUntil(time_point t) {
  const std::chrono::duration<double> scaled = t - origin_;
  wall_.sleepUntil(origin_ + std::chrono::duration_cast<std::chrono::steady_clock::duration>(scaled / scale_));
}

void lf_runSchedule(LoopClock& clock, const std::function<bool()>& tick) {
  auto next = clock.now() + 10ms;
  bool go = tick();
  while (go) {
    const auto now = clock.now();
    if (next + 100ms < now) next = now + 10ms;
    if (next - now >= 1ms) clock.sleepUntil(next);
    if (gv_secondTick.load()) next = clock.now();
    next += 10ms;
    go = tick();
  }
}

bool lf_tick() {
  if (!gv_simRunning.load() || gv_simRequestFailed.load()) {
    lf_flightNotRunning();
    return !gf_stopping();
  }
  lf_handleAddingStack();
  if (!gv_secondTick.exchange(false)) return true;
  lf_everySecond();
  if (gf_stopping()) return false;

  const SecondWork w = lf_secondWork(gv_seconds, gv_staticUpdateSecondPhase);
  if (w.parking) lf_parkingStep(false);
  if (w.feedStatus) lf_feedStatus();
  if (w.removeStaticTwin) lf_sweepStaticTwins();
  if (w.fiveSecond) {
    lf_copyUserPositionToFeed();
    if (gv_rtProf.load()) lf_sendSimTime(gv_simEpoch.load());
    if (!gReservedStand.empty()) lf_keepStandFree(gReservedStand);
    lf_runRereadRequest();
  }
  if (w.staticUpdate) {
    if (gv_staticUpdatePending.load()) lf_advanceStaticUpdate();
    if (lf_feedDataLost()) lf_feedStatus();
  }
  if (w.every30) lf_every30Seconds();
  return true;
}

void lf_flightNotRunning() {
  if (!gv_flightNotRunning) {
    lf_setFeedEnabled(false);
    gv_flightNotRunning = true;
    gv_runStage = RunStage::FlightNotRunning;
    gv_notRunningCounter = 100;
    lf_discardPendingPositions();
    gf_log("{} Flight not running", gf_timeOfDay());
  }
  lf_takeSimNotices();
  --gv_notRunningCounter;
  if (gv_notRunningCounter % 100 == 0) {
    lf_runRereadRequest();
    lf_sendPosition();
  }
  if (gv_notRunningCounter <= 0) {
    gv_notRunningCounter = 100;
    lf_refreshAircraftCounts();
    gf_refreshDayAndSlot();
  }
}

void lf_everySecond() {
  if (gv_flightNotRunning) {
    gv_flightNotRunning = false;
    gv_runStage = RunStage::Running;
    gf_log("{} Flight resumed", gf_timeOfDay());
    lf_setFeedEnabled(true);
  }
  gf_ageMessage();
  lf_refreshAircraftCounts();
  gf_refreshDayAndSlot();
  ++gv_seconds;

  if (!gRouteQueue.empty()) {
    const std::uint32_t hexid = gRouteQueue.front();
    gRouteQueue.pop_front();
    if (const int i = gf_findLiveAc(hexid); i >= 0) {
      LiveAc& ac = gLiveAc[static_cast<std::size_t>(i)];
      if (ac.routeLooked == 0) {
        lf_lookUpFlight(gv_dayAndSlot.load(), ac);
        ac.routeLooked = 1;
      }
      lf_dropStaticTwin(ac);
    }
  }
  if (gv_reqShowObjectId.load()) {
    const int i = lf_findLiveInSimByCallsign(CALLSIGN_2_OBJECTID.value);
    if (i < 0) {
      gParkingStatus.objectIdText.show("has left");
    } else {
      const std::uint32_t id = gLiveAc[static_cast<std::size_t>(i)].objectid;
      gParkingStatus.objectIdText.show(gv_isMsfs2020 ? fmt::format("= {}", id) : fmt::format("= {:x}", id));
    }
    gv_reqShowObjectId = false;
  }
  if (gv_reqFlushStatic.exchange(false)) {
    lf_removeAllStatic();
    if (!INITIAL_LOAD_ONLY.value) {
      INITIAL_LOAD_ONLY.set(true);
      saveBool(INITIAL_LOAD_ONLY);
      gf_window().setChecked(INITIAL_LOAD_ONLY.controlId, true);
    }
  }
  if (gv_reqCallsignToOid.exchange(false)) {
    gParkingStatus.objectIdText.show("");
    lf_fillCallsignList();
    gv_reqShowObjectId = true;
  }
  if (gv_userOnGround.load()) {
    if (COLLISION_USER_GND.value) lf_collisionUserGnd();
  } else if (COLLISION_USER_AIR.value) {
    lf_collisionUserAir();
  }
  if (COLLISION_LIVE_PARKED_GND.value) lf_collisionLiveParked();
  if (gv_reqBlockCallsign.load()) {
    const int i = BLOCK_CALLSIGN.value.empty() ? -1 : lf_findLiveInSimByCallsign(BLOCK_CALLSIGN.value);
    if (i >= 0) removeAircraftFromSim(gLiveAc[static_cast<std::size_t>(i)]);
    gv_reqBlockCallsign = false;
  }
  if (gv_staticUpdateRunning.load()) gf_window().invalidate(Band::ParkAirport);
}

void lf_every30Seconds() {
  if (gv_reqRematch.exchange(false)) lf_clearNoMatch();
  if (AUTO_RANGE.value) computeAutoRange();
  if (gv_seconds % 60 == 0) {
    int minutes = gParkingStatus.minutesToUpdate.load() - 1;
    if (minutes < 1) {
      minutes = 20;
      if (lf_parkingPossible() && !INITIAL_LOAD_ONLY.value && !gv_staticUpdateRunning.load() &&
          !gv_staticUpdatePending.load())
        lf_announceStaticUpdate(gv_seconds);
    }
    gParkingStatus.minutesToUpdate.show(minutes);
    if (OBJECTID_LIST.value) gf_writeObjectIdList();
  }
  if (gv_seconds % 1200 == 0) {
    lf_writeNoMatchList();
    if (gv_seconds % 86400 == 0) {
      gv_seconds = 0;
      gf_writeMatchingSummary();
      lf_clearLiveryCache();
    }
  }
  gf_flushLog();
}

void lf_mainLoop() {
  gv_runStage = RunStage::Running;
  lf_parkingStep(true);
  lf_feedStatus();
  gv_seconds = 0;
  gf_refreshDayAndSlot();
  lf_setFeedEnabled(true);
  lf_fillCallsignList();
  lf_enableControl(BUTTON_CS2OID.controlId, true);
  desktop::beginTimerResolution();
  SteadyLoopClock wall;
  if (gv_timeScale == 1.0) {
    lf_runSchedule(wall, lf_tick);
  } else {
    ScaledLoopClock scaled(wall, gv_timeScale);
    lf_runSchedule(scaled, lf_tick);
  }
  desktop::endTimerResolution();
}

}  // namespace orv
