#include "simlink/simulator_switch.h"

#include <fmt/format.h>

#include <filesystem>

#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/sim_choice.h"

namespace orv {

void lf_switchSimulator() {
  // A missing catalogue is what we want; any other failure is an error of the file system.
  std::filesystem::remove("output/LiveriesScanned.xml");
  SCAN_AIRPORTS.set(true);
  saveBool(SCAN_AIRPORTS);
  SCAN_LIVERIES.set(true);
  saveBool(SCAN_LIVERIES);
  setMessage(fmt::format("Switching MSFS version in {}", kProgramName), true);
  ALL_INSTALL_PATH.set("");
  lf_showSimulatorSwitch();
  // The add-on airports of MSFS 2024 are listed anew when it is chosen again.
  if (!gv_isMsfs2020) {
    MYSIMADDON24_VERSION.set("");
    saveString(MYSIMADDON24_VERSION);
  }
  requestStop(ExitReason::NewSettings, 3);
}

void lf_switchToConnectedSimulator() {
  if (gv_stopRun.load()) return;
  SIM_CHOICE.set(gv_isMsfs2020 ? "MSFS 2024" : "MSFS 2020");
  saveString(SIM_CHOICE);
  lf_switchSimulator();
}

}  // namespace orv
