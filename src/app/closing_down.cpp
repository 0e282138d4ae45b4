#include "app/closing_down.h"

#include <fmt/format.h>

#include <mutex>
#include <string>
#include <thread>

#include "app/main_loop.h"
#include "app/process_state.h"
#include "app/run_stage.h"
#include "engine/engine_tables.h"
#include "engine/traffic_queue.h"
#include "feed/feed_readers.h"
#include "feed/rt_link.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "liveries/match_memory.h"
#include "liveries/match_summary.h"
#include "parking/park_airport_sight.h"
#include "parking/parking_adjustments.h"
#include "parking/parking_run_state.h"
#include "platform/window/window_layer.h"
#include "simlink/flight_plans.h"
#include "simlink/sim_client.h"
#include "simlink/sim_run_state.h"
#include "simlink/sim_session.h"
#include "ui/run_requests.h"

namespace orv {

using namespace std::chrono_literals;

namespace {

bool lf_restartsAfter(ExitReason r) {
  return r == ExitReason::NewSettings || r == ExitReason::SimConnectError || r == ExitReason::ReaderError;
}

}  // namespace

void lf_restartCountdown() {
  const int n = gv_restartSeconds.load();
  if (n < 1) return;
  gf_log("Restarting after {} seconds", n);
  gf_log(std::string(48, '-'));
  for (int i = n; i >= 1; --i) {
    setMessage(fmt::format("Restarting after {} second{}", i, i == 1 ? "" : "s"));
    std::this_thread::sleep_for(1s);
  }
  gf_log("Restart countdown finished");
}

void lf_resetRunState() {
  gf_resetRunFlags();
  gf_resetMessageSeconds();
  lf_resetFeed();
  gf_resetEngine();
  gf_resetSimLink();
  lf_resetParkingRunState();
  lf_resetStatusBand();
  lf_resetRunRequests();
  lf_resetMainLoopState();
}

void lf_closingDown() {
  try {
    gv_runStage = RunStage::Closing;
    const ExitReason reason = gv_exitReason.load();
    gf_log("Exiting: {}", gf_exitReasonText(reason));
    gTrafficQueue.setEnabled(false);
    lf_stopSimClient();
    lf_stopReaders();
    std::this_thread::sleep_for(500ms);
    lf_closeRt();
    if (reason == ExitReason::SystemError) {
      // The error stays readable on the window for as long as the user wants.
      while (!gv_userClosing.load()) std::this_thread::sleep_for(500ms);
      setMessage(fmt::format("User closed {}", kProgramName), true);
    }
    if (!gv_parkIcao.empty()) clearParkAirport();
    lf_clearLiveryCache();
    gf_removeFlightPlanFolder();
    DESTINATION.set("");
    saveString(DESTINATION);
    BLOCK_CALLSIGN.set("");
    saveString(BLOCK_CALLSIGN);
    gParkingStatus.tbloRequest.show(false);
    gGhostList.clear();
    gf_writeMatchingSummary();
    lf_writeNoMatchList();
    if (lf_restartsAfter(reason)) {
      gv_restarting = true;
      gf_clearErrorText();
      clearMessage();
      setMessage("Prepare for a restart ...", true);
      if (reason != ExitReason::NewSettings) {
        // A restart after an error does not repeat a scan that the user had asked for.
        SCAN_LIVERIES.set(false);
        saveBool(SCAN_LIVERIES);
        SCAN_AIRPORTS.set(false);
        saveBool(SCAN_AIRPORTS);
      }
      lf_restartCountdown();
      lf_resetRunState();
    } else {
      gv_restarting = false;
      if (reason == ExitReason::NewFlight) {
        setMessage(fmt::format("New flight detected, {} will close, please restart manually ...", kProgramName), true);
        std::this_thread::sleep_for(10s);
      }
    }
    gf_window().post(gv_restarting ? WM_START_RUN : WM_END_PROGRAM);
    gf_flushLog();
  } catch (const std::exception& e) {
    setMessage(fmt::format("{} exception {}", "lf_closingDown", e.what()), true);
  }
}

}  // namespace orv
