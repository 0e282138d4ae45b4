#include "app/start_up.h"

#include <fmt/format.h>

#include <filesystem>
#include <thread>

#include "airportdata/airport_catalogue.h"
#include "app/closing_down.h"
#include "app/main_loop.h"
#include "app/process_state.h"
#include "app/run.h"
#include "app/run_stage.h"
#include "app/working_folder.h"
#include "feed/rt_link.h"
#include "foundation/day_and_slot.h"
#include "foundation/folder_utils.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "foundation/user_error.h"
#include "foundation/user_paths.h"
#include "foundation/version_upgrade.h"
#include "liveries/livery_catalogue.h"
#include "liveries/livery_scan.h"
#include "parking/park_airports.h"
#include "platform/window/window_layer.h"
#include "refdata/dbase_reader.h"
#include "refdata/versions_download.h"
#include "simlink/flight_plans.h"
#include "simlink/install_detection.h"
#include "ui/controls.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

// The decrypted working copies of the reference data; one left by a crash must not stay.
void lf_removePlainCopies() {
  for (const char* file : {"input/airports.xml", "input/AIG-regcodes.xml", "input/dbase.xml"}) {
    std::error_code ec;
    if (fs::exists(file, ec) && !fs::remove(file, ec))
      gf_log("Warning: could not remove {}, errorcode: {}", file, ec.value());
  }
}

ValueParameter<std::string>& chosenInstallPath() { return gv_isMsfs2020 ? MSFS_INSTALL_PATH : MSFS_2024_INSTALL_PATH; }

// A path typed with its Community folder names the installation above it.
void lf_dropCommunityTail() {
  auto& path = chosenInstallPath();
  for (std::string_view tail : {"\\Community", "/Community"}) {
    if (path.value.size() >= tail.size() && path.value.ends_with(tail)) {
      path.set(path.value.substr(0, path.value.size() - tail.size()));
      saveString(path);
      return;
    }
  }
}

void lf_countAddonAirports() {
  gScanStatus.simAddonAirports.show(static_cast<unsigned>(gf_countEntries("airports/my_simaddon")));
  gScanStatus.thirdPartyAirports.show(static_cast<unsigned>(gf_countEntries("airports/my_thirdparty")));
}

}  // namespace

bool lf_prepareData() {
  gv_runStage = RunStage::Preparing;
  gf_readAndUpgradeParameters();
  gf_window().invalidate(Band::Status);
  gf_flushLog();
  lf_resetControls();
  lf_dropCommunityTail();
  lf_createFolders();
  if (!gv_restarting && !lf_checkVersionsAndDownload()) return false;
  gf_refreshDayAndSlot();
  if (!gv_dataFilesRead) {
    if (!gf_readDbase()) throw std::runtime_error("reading data files failed!");
    gv_dataFilesRead = true;
  }
  if (!lf_readAirportCatalogue())
    throw std::runtime_error(fmt::format("reading '{}' failed!", (fs::path("input") / "airports.enc").string()));
  ALL_INSTALL_PATH.set(chosenInstallPath().value);
  lf_enableControl(ALL_INSTALL_PATH.controlId, true);
  lf_setControlText(ALL_INSTALL_PATH.controlId, ALL_INSTALL_PATH.value);
  if (ALL_INSTALL_PATH.value.empty() && !lf_detectInstallPath())
    throw UserErrorException(user_error::kNoInstallPath, user_error::kNoInstallPathText);
  gf_window().invalidate(Band::Controls);
  if (gv_production) {
    lf_stopForProduction();
    return false;
  }
  gv_rtOnThisPc = fs::exists(gf_realTrafficJarPath());
  setMessage(fmt::format("RealTraffic {}detected at this PC", gv_rtOnThisPc ? "" : "not "), true);
  gf_flushLog();
  return true;
}

void lf_closeAsUser() {
  gv_userClosing = true;
  lf_closeRt();
  gv_stopRun = true;
  gf_setUserClosedIfUnset();
}

void lf_stopForProduction() {
  try {
    gf_log("production");
    gv_exitCode = 0;
    lf_closeAsUser();
  } catch (const std::exception& e) {
    gf_logError("exception {}", e.what());
    gv_exitCode = 1;
  }
}

void lf_startUpOrvane() {
  try {
    if (!fs::is_directory("docs"))
      throw UserErrorException(user_error::kWrongFolder, user_error::kWrongFolderText, kProgramName, kProgramName);
    bool endedByStop = false;
    if (lf_prepareData()) {
      lf_removePlainCopies();
      gv_workerThreads = std::thread::hardware_concurrency() > 0 ? std::thread::hardware_concurrency() : 2;
      gv_runStage = RunStage::ScanningLiveries;
      if (SCAN_LIVERIES.value || !fs::exists("output/LiveriesScanned.xml")) lf_scanLiveries();
      gf_processScannedLiveries();
      endedByStop = gf_stopping();
      if (!endedByStop) {
        lf_countAddonAirports();
        endedByStop = gf_stopping();
      }
      if (!endedByStop) {
        gf_createFlightPlanFolder();
        lf_readMyParkAirports();
        lf_enableControl(BUTTON_REREAD.controlId, true);
        if (!DESTINATION.value.empty()) lf_lookUpDestination();
        gf_window().setTopmost(ALWAYS_ON_TOP.value);
        if (lf_run())
          lf_mainLoop();
        else
          endedByStop = true;
      }
      if (endedByStop) lf_closeAsUser();
    }
  } catch (const UserErrorException& e) {
    setError(e.what());
    gv_exitReason = ExitReason::SystemError;
  } catch (const fmt::format_error& e) {
    setError(fmt::format("std::format error: {}", e.what()));
    setError(e.what());
    requestStop(ExitReason::SystemError, 0);
  } catch (const std::exception& e) {
    setError(e.what());
    requestStop(ExitReason::SystemError, 0);
  } catch (...) {
    setError("Unknown exception");
    gv_exitReason = ExitReason::SystemError;
  }
  gf_flushLog();
  lf_closingDown();
}

}  // namespace orv
