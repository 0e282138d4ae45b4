#include "app/run.h"

#include <fmt/format.h>

#include <mutex>
#include <thread>

#include "airportscan/airport_scan.h"
#include "app/run_stage.h"
#include "engine/engine_tables.h"
#include "engine/traffic_queue.h"
#include "feed/feed_readers.h"
#include "feed/rt_link.h"
#include "feed/rt_position.h"
#include "feed/traffic_decoder.h"
#include "foundation/day_and_slot.h"
#include "foundation/log.h"
#include "foundation/parameters.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "parking/park_airports.h"
#include "simlink/sim_client.h"
#include "simlink/sim_queues.h"
#include "simlink/sim_run_state.h"
#include "simlink/sim_session.h"
#include "simlink/user_aircraft.h"
#include "ui/controls.h"

namespace orv {

using namespace std::chrono_literals;

bool lf_pause(std::chrono::milliseconds total) {
  while (total > 0ms) {
    if (gf_stopping()) return false;
    const auto slice = std::min(total, std::chrono::milliseconds(100));
    std::this_thread::sleep_for(slice);
    total -= slice;
  }
  return !gf_stopping();
}

void lf_copyUserPositionToFeed() { gTrafficDecoder.setUserPosition(gUserSnapshot.lat, gUserSnapshot.lon); }

bool lf_waitForUserAircraft() {
  while (!gv_simRunning.load() || gv_simRequestFailed.load() || !gf_simSessionOpen())
    if (!lf_pause(100ms)) return false;
  // A refusal is logged and ends the run; the waits below then see the stop flag.
  lf_requestGroundAirData();
  for (;;) {
    gUserSnapshot = lf_requestUserPosition();
    if (gv_userAircraftKnown.load() && gf_userPositionKnown(gUserSnapshot)) break;
    if (!lf_pause(500ms)) return false;
  }
  lf_requestUserTitleAndModel();
  while (!gf_userPositionKnown(gUserSnapshot)) {
    if (!lf_pause(200ms)) return false;
    gUserSnapshot = lf_requestUserPosition();
  }
  return true;
}

bool lf_run() {
  gFeedStatus.rtConnected.show(false);
  gSimStatus.connected.show(false);
  gf_reserveEngineTables();
  gf_reserveSimQueues();
  gv_simRequestFailed = false;
  gv_runStage = RunStage::WaitingForSim;
  lf_startSimClient();
  if (!lf_waitForUserAircraft()) return false;

  lf_enableControl(SCAN_AIRPORTS.controlId, true);
  if (SCAN_AIRPORTS.value) {
    gv_runStage = RunStage::ScanningAirports;
    gScanStatus.simAddonAirports.store(0);
    gScanStatus.thirdPartyAirports.store(0);
    lf_scanAirports();
  }
  if (AUTO_RANGE.value) computeAutoRange();
  const bool rtLink = gv_rtOnThisPc && !AEROWINX.value;
  if (rtLink)
    lf_openRtServer(PORT_NUMBER.value);
  else
    gFeedStatus.rtConnected.show(true);
  if (gf_stopping()) return false;

  gv_runStage = RunStage::WaitingForRealTraffic;
  gFeedStatus.rtWaiting.show(false);
  if (!AEROWINX.value) {
    waitForClient();
    if (gv_rtProf.load()) lf_sendSimTime(gv_simEpoch.load());
  } else {
    gv_rtProf = false;
  }
  if (gf_stopping()) return false;

  gv_runStage = RunStage::StartingReaders;
  gTrafficQueue.setEnabled(false);
  lf_startQnhReader(gv_qnhPort);
  if (!lf_pause(2s)) return false;
  lf_startTrafficReader(gv_rtOnThisPc, gv_trafficPort);
  lf_sendPosition();
  lf_copyUserPositionToFeed();
  int round = 0;
  while (gv_feedTimestamp.load() == 0 && round < 150) {
    if (!lf_pause(100ms)) return false;
    ++round;
  }
  if (gv_feedTimestamp.load() == 0) gf_log("No traffic in this region?");
  gf_refreshDayAndSlot();
  return true;
}

}  // namespace orv
