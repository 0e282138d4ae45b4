#include "simlink/flight_plans.h"

#include <fmt/format.h>

#include <fstream>
#include <mutex>
#include <system_error>

#include "engine/ac_text.h"
#include "foundation/log.h"
#include "foundation/sim_choice.h"
#include "foundation/user_paths.h"
#include "platform/simconnect/simconnect.h"
#include "simlink/sim_ids.h"
#include "simlink/sim_session.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

bool lf_writePlan(const fs::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  return static_cast<bool>(out);
}

}  // namespace

bool gf_createFlightPlanFolder() {
  const fs::path folder = gf_flightPlanFolder();
  std::error_code ec;
  fs::create_directories(folder, ec);
  if (ec) gf_log("gf_createFlightPlanFolder: {}", ec.message());
  return fs::is_directory(folder, ec);
}

void gf_removeFlightPlanFolder() {
  const fs::path folder = gf_flightPlanFolder();
  std::error_code ec;
  if (!fs::exists(folder, ec)) return;
  fs::remove_all(folder, ec);
  if (ec) gf_log("gf_removeFlightPlanFolder: {}", ec.message());
}

fs::path gf_flightPlanFile(std::uint32_t objectid) { return gf_flightPlanFolder() / fmt::format("{}.pln", objectid); }

std::string gf_flightPlanText(std::int32_t acClass, std::string_view from, std::string_view to) {
  const bool ifr = acClass == kBuzjets || acClass == kLarge || acClass == kHeavy;
  return fmt::format(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<SimBase.Document Type=\"AceXML\" version=\"4,3\">\n"
      "<FlightPlan.FlightPlan>\n"
      "<FPType>{}</FPType>\n"
      "<DepartureID>{}</DepartureID>\n"
      "<DestinationID>{}</DestinationID>\n"
      "</FlightPlan.FlightPlan>\n"
      "</SimBase.Document>\n"
      "\n",
      ifr ? "IFR" : "VFR", from, to);
}

void gf_setFlightPlan(LiveAc& ac) {
  if (!ac.from || !ac.to) return;
  const fs::path file = gf_flightPlanFile(ac.objectid);
  if (!lf_writePlan(file, gf_flightPlanText(ac.acClass, ac.from.view(), ac.to.view()))) {
    gf_log("{} creating a flight plan failed", gf_acShortText(ac));
    ac.flightPlanSet = 0;
    return;
  }
  if (gv_isMsfs2020) {
    const std::u8string u8 = file.u8string();
    const std::string path(u8.begin(), u8.end());
    HRESULT hr = S_OK;
    {
      std::lock_guard lock(gSimMutex);
      hr = SimConnect_AISetAircraftFlightPlan(gv_simHandle, ac.objectid, path.c_str(), kReqFlightPlan);
    }
    if (hr != S_OK) {
      gf_log("{} creating a flight plan failed", gf_acShortText(ac));
      ac.flightPlanSet = 0;
      return;
    }
  }
  ac.flightPlanSet = 1;
}

void gf_removeFlightPlan(LiveAc& ac) {
  if (!ac.flightPlanSet) return;
  std::error_code ec;
  fs::remove(gf_flightPlanFile(ac.objectid), ec);
  if (ec) gf_log("gf_removeFlightPlan: {}", ec.message());
}

}  // namespace orv
