#include "simlink/sim_client.h"

#include <fmt/format.h>

#include <mutex>
#include <stop_token>
#include <string>
#include <thread>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "simlink/sim_run_state.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "foundation/user_error.h"
#include "platform/desktop/desktop.h"
#include "platform/simconnect/simconnect.h"
#include "simlink/sim_declare.h"
#include "simlink/sim_dispatch.h"
#include "simlink/sim_session.h"
#include "simlink/simulator_switch.h"
#include "simlink/user_stand.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

std::jthread gSimClientThread;

void lf_publishHandle(HANDLE handle) {
  std::lock_guard lock(gSimMutex);
  gv_simHandle = handle;
}

void lf_closeSession(HANDLE& handle) {
  if (handle == nullptr) return;
  if (SUCCEEDED(SimConnect_Close(handle)))
    gf_log("SimConnect closed ok");
  else
    gf_logError("Closing SimConnect failed?!");
  handle = nullptr;
}

void lf_simulatorGone() {
  if (gv_stopRun.load()) return;
  gf_log("{} Flight Simulator no longer connected, {} will stop ...", gf_timeOfDay(), kProgramName);
  requestStop(ExitReason::SimWasClosed, 0);
}

// Opens the session, retrying every 100 ms; false when the run or the thread stops first.
bool lf_connect(const std::stop_token& stop, HANDLE& handle) {
  const std::string name(kProgramName);
  bool announced = false;
  for (;;) {
    if (gf_stopping() || stop.stop_requested()) return false;
    if (!announced) {
      announced = true;
      gf_log("");
      setMessage(fmt::format("Waiting for MSFS 20{} ...", gv_isMsfs2020 ? "20" : "24"), true);
      gf_flushLog();
    }
    lf_closeSession(handle);
    if (SUCCEEDED(SimConnect_Open(&handle, name.c_str(), nullptr, 0, nullptr, 0))) return true;
    handle = nullptr;
    std::this_thread::sleep_for(100ms);
  }
}

void lf_serve(const std::stop_token& stop, HANDLE& handle, bool& fineTimer) {
  if (!lf_connect(stop, handle)) return;
  lf_publishHandle(handle);
  lf_declareToSim(handle);
  desktop::beginTimerResolution();
  fineTimer = true;
  // The result is not looked at: a session that is gone shows by its records or by the
  // requests that fail.
  while (!stop.stop_requested()) {
    lf_callDispatch(handle);
    std::this_thread::sleep_for(1ms);
  }
}

void lf_simClient(std::stop_token stop) {
  lf_publishHandle(nullptr);
  // Objects of an earlier session are not ours to wait for.
  gAddedObjects.clear();
  gPendingCreates.clear();
  HANDLE handle = nullptr;
  bool fineTimer = false;
  try {
    lf_serve(stop, handle, fineTimer);
  } catch (const UserErrorException& e) {
    gv_simRunning = false;
    if (e.code() == user_error::kOtherSimulator) {
      gf_log("MSFS and {} do not match, restarting ...", kProgramName);
      try {
        lf_switchToConnectedSimulator();
      } catch (const std::exception& failure) {
        setError(failure.what());
        lf_simulatorGone();
      }
    } else {
      setError(e.what());
      lf_simulatorGone();
    }
  } catch (const std::exception& e) {
    setError(e.what());
    gv_simRunning = false;
    lf_simulatorGone();
  } catch (...) {
    setError(fmt::format("Exception in {}", "SimClient"));
    gv_simRunning = false;
    lf_simulatorGone();
  }
  if (fineTimer) desktop::endTimerResolution();
  lf_rememberUserStand();
  gSimStatus.connected.show(false);
  lf_publishHandle(nullptr);
  lf_closeSession(handle);
}

}  // namespace

void lf_startSimClient() { gSimClientThread = std::jthread(lf_simClient); }

void lf_stopSimClient() {
  if (gSimClientThread.joinable()) gSimClientThread.request_stop();
}

void lf_joinSimClient() {
  if (!gSimClientThread.joinable()) return;
  gSimClientThread.request_stop();
  gSimClientThread.join();
}

}  // namespace orv
