#include "foundation/user_paths.h"

#include "foundation/log.h"
#include "platform/desktop/desktop.h"

namespace fs = std::filesystem;

namespace orv {

fs::path gf_appDataPath() {
  if (auto p = desktop::knownFolder(desktop::KnownFolder::RoamingAppData)) return *p;
  gf_logError("Could not find the AppData path");
  return {};
}

fs::path gf_localAppDataPath() {
  if (auto p = desktop::knownFolder(desktop::KnownFolder::LocalAppData)) return *p;
  gf_logError("Could not find the Local AppData path");
  return {};
}

fs::path gf_userFolder() { return gf_appDataPath() / "Orvane"; }
fs::path gf_parametersPath() { return gf_userFolder() / "parameters.xml"; }
fs::path gf_flightPlanFolder() { return gf_userFolder() / "orig_dest"; }
fs::path gf_realTrafficJarPath() { return gf_appDataPath() / "InsideSystems" / "RealTraffic.jar"; }

}  // namespace orv
