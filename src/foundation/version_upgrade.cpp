#include "foundation/version_upgrade.h"

#include <filesystem>

#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/user_paths.h"

namespace fs = std::filesystem;

namespace orv {

namespace {
// Versions before these left data or parameters that this one cannot use.
constexpr VersionData kDataFilesChanged{12, 0, 0};
constexpr VersionData kOldestConvertible{11, 0, 2};

void askForScan(CheckboxParameter& scan) {
  scan.value = true;
  saveBool(scan);
}
}  // namespace

void gf_readAndUpgradeParameters() {
  if (gf_readParameters()) {
    // First start: nothing has been scanned yet.
    askForScan(SCAN_LIVERIES);
    askForScan(SCAN_AIRPORTS);
    gf_showParameterValues();
    return;
  }
  if (!lf_updateVersion()) return;

  gf_log("\nYour previous version was too old to convert the old text box parameters to the newdropbox values.");
  gf_log("{} re-starts with default parameter values ...\n", kProgramName);
  const fs::path file = gf_parametersPath();
  if (fs::exists(file)) fs::remove(file);
  gf_writeParameters(true);
}

bool lf_updateVersion() {
  const std::string running = kRunningVersion.text();
  if (PROGRAM_VERSION.value == PROGRAM_VERSION.defaultValue) {
    PROGRAM_VERSION.value = running;
    saveString(PROGRAM_VERSION);
    return false;
  }
  const VersionData stored(PROGRAM_VERSION.value);
  // Saved first, so that a failure below does not make the next start repeat the update.
  if (stored != kRunningVersion) {
    PROGRAM_VERSION.value = running;
    saveString(PROGRAM_VERSION);
  }
  if (!(kRunningVersion > stored)) return false;

  gf_log("This is a version update from {} -> {}", stored.text(), running);
  if (stored < kDataFilesChanged) {
    for (const char* name : {"airports.enc", "AIG-regcodes.enc", "dbase.enc"}) {
      const fs::path data = fs::path("input") / name;
      if (fs::exists(data)) fs::remove(data);
    }
  }
  if (stored < kOldestConvertible) return true;
  if (fs::exists("new_version")) fs::remove_all("new_version");
  return false;
}

}  // namespace orv
