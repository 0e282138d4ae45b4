#include "parking/park_airport_sight.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_file_load.h"
#include "airportdata/airport_lookup.h"
#include "airportdata/airport_settings.h"
#include "airportdata/closest_airport.h"
#include "airportdata/park_airport_file.h"
#include "airportdata/stands.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_tables.h"
#include "engine/geodesy.h"
#include "engine/park_airport_site.h"
#include "engine/reserved_stand.h"
#include "engine/user_snapshot.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/parameters.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "parking/park_airports.h"
#include "parking/parking_adjustments.h"
#include "parking/parking_hooks.h"
#include "parking/static_parking.h"

namespace orv {
namespace {

// A stand this near the user's aircraft is the one it stands on (55 m).
constexpr double kUserStandNm = 0.029697624190064796;
constexpr double kSamePositionDeg = 1e-8;

bool gParkFileWanted = false;
// The last finding that the step told the user, so that a user standing still is told once.
std::string gLastFinding;

struct UserStandCache {
  bool valid = false;
  double lat = 0, lon = 0;
  std::string stand;
};
UserStandCache gUserStandCache;

void tellFinding(const std::string& text) {
  setMessage(text);
  if (text != gLastFinding) gf_log(text);
  gLastFinding = text;
}

bool inSight(double distance) {
  return distance <= AIRP_RANGE.value && gUserSnapshot.alt <= AIRP_HEIGHT.value;
}

// What clearing and a failed load share: the settings of the airport handed back, the file
// forgotten, nothing chosen.
void forgetAirport() {
  if (gv_airportFileValid.load()) lf_restoreSettingsBeforeAirport();
  lf_clearParkAirportFile();
  gReservedStand.clear();
  gUserStandCache = {};
  gv_parkIcao = {};
  gParkAirportSite = {};
  lf_clearParkAirportBand();
  gParkingStatus.parkingPossible.show(false);
  gv_parkAirportChanged();
}

void findingRule(bool atStart) {
  const double lat = gUserSnapshot.lat, lon = gUserSnapshot.lon;
  if (gv_userOnGround.load()) {
    const RtAirport* airport = closestAirport(lat, lon);
    if (airport == nullptr) {
      tellFinding("User aircraft on the ground, no RT supported airport in sight");
      return;
    }
    if (!airportFileExists(airport->icao.view())) {
      tellFinding(fmt::format("User aircraft on the ground at {}, no airport file found", airport->icao.view()));
      return;
    }
    gf_log("User aircraft on the ground at {}", airport->icao.view());
    if (!setParkAirport(airport->icao.view())) return;
  } else {
    gv_enableReread();
    if (gParkAirports.empty()) return;
    const ParkAirportEntry& head = gParkAirports.front();
    if (!inSight(head.distance) || !setParkAirport(head.icao.view())) return;
    setMessage(fmt::format("{} in sight at {:.1F} nm", head.icao.view(), head.distance), true);
  }
  gLastFinding.clear();
  gParkFileWanted = true;
  gv_enterParkingWait(atStart);
}

void leavingRule() {
  if (gv_userOnGround.load()) return;
  const double dp = gf_distance({gUserSnapshot.lat, gUserSnapshot.lon}, {gParkAirportSite.lat, gParkAirportSite.lon});
  if (inSight(dp)) {
    if (gParkAirports.empty()) return;
    const ParkAirportEntry& head = gParkAirports.front();
    if (head.icao == gv_parkIcao || !inSight(head.distance) || head.distance > dp) return;
    gf_log("\n{} {} is in sight ({:.1F} nm), parked aircraft at {} will be removed first", gf_timeOfDay(),
           head.icao.view(), head.distance, gv_parkIcao.view());
  } else {
    gf_log("\n{} {} is out of sight ({:.1F} nm), parked aircraft will be removed", gf_timeOfDay(), gv_parkIcao.view(),
           dp);
  }
  clearParkAirport();
}

// The user's stand goes into the list's entry of the park airport, which heads the list.
void rememberUserStand() {
  if (!gf_userPositionKnown(gUserSnapshot)) return;
  const std::string s = userStandAt(gUserSnapshot.lat, gUserSnapshot.lon);
  if (!gParkAirports.empty() && gParkAirports.front().icao == gv_parkIcao) {
    ParkAirportEntry& head = gParkAirports.front();
    if (s.empty() || s == head.stand) return;
    head.stand = s;
  } else {
    // One entry per airport: the new head replaces an older one further down.
    gParkAirports.remove_if([](const ParkAirportEntry& e) { return e.icao == gv_parkIcao; });
    gParkAirports.push_front({s, gParkAirportSite.lat, gParkAirportSite.lon, 0, gv_parkIcao});
  }
  updateParkFile();
}

void takeReservedStand() {
  gReservedStand.clear();
  bool found = false;
  if (!gParkAirports.empty() && gParkAirports.front().icao == gv_parkIcao && !gParkAirports.front().stand.empty()) {
    const std::string& id = gParkAirports.front().stand;
    found = std::any_of(gStands.begin(), gStands.end(), [&](const Stand& s) { return s.id == id; });
    if (found) gReservedStand = id;
  }
  gParkingStatus.reservedStand.show(gReservedStand);
  gParkingStatus.reservedMark.show(found);
}

}  // namespace

bool setParkAirport(std::string_view icao) {
  const RtAirport* airport = findRtAirport(icao);
  if (airport == nullptr) {
    gParkingStatus.parkCode.show("");
    return false;
  }
  gv_parkIcao = airport->icao;
  gParkAirportSite = {true, airport->iata, airport->latitude, airport->longitude, airport->altitude};
  gf_log("\nThe park airport is {}", airport->icao.view());
  gParkingStatus.parkCode.show(airport->icao.str());
  gv_parkAirportChanged();
  return true;
}

void clearParkAirport() {
  // Live aircraft on the ground lose their stands with the airport.
  for (LiveAc& ac : gLiveAc) {
    if (ac.flightState != kParked && ac.flightState > kTakeOff) continue;
    ac.standLat = ac.standLon = ac.standHeading = 0;
    ac.sid = 0;
    ac.standCargo = 0;
    if (ac.simState == kActive || ac.simState == kAdding2Sim) removeAircraftFromSim(ac);
  }
  gf_compactLiveAc();
  // The learned file is saved here once learning lands.
  forgetAirport();
  lf_removeAllStatic();
}

std::string lf_readParkedFile() {
  gStands.clear();
  gUserStandCache = {};
  const std::string xml = locateAirportFile(gv_parkIcao.view());
  if (xml.empty()) return fmt::format("lf_readParkedFile {} not found", gv_parkIcao.view());
  gApfAirport.icao = gv_parkIcao.str();
  gApfAirport.airportName.clear();
  gApfAirport.publisher.clear();
  gApfAirport.altitude = 0;
  if (std::string failure = gf_readApf(xml, gApfAirport, gQualityFactors, gStands); !failure.empty()) {
    gParkingStatus.fileLoadedMark.show(false);
    return failure;
  }
  gParkAirportSite.elevationFt = gApfAirport.altitude;
  gv_parkAirportChanged();
  rememberUserStand();
  gStands.shrink_to_fit();
  takeReservedStand();
  gParkingStatus.parkName.show(gApfAirport.airportName);
  gParkingStatus.learnedUpdatesShown.show(0);
  gParkingStatus.parkingPossible.show(true);
  return {};
}

void failedParkFile() {
  forgetAirport();
  gv_endParkingWait();
}

std::string userStandAt(double lat, double lon) {
  if (gStands.empty() || !gv_userOnGround.load()) return {};
  if (gUserStandCache.valid && std::fabs(lat - gUserStandCache.lat) <= kSamePositionDeg &&
      std::fabs(lon - gUserStandCache.lon) <= kSamePositionDeg)
    return gUserStandCache.stand;
  const Stand* nearest = nullptr;
  double best = kUserStandNm;
  for (const Stand& s : gStands) {
    const double d = gf_distance({lat, lon}, {s.latitude, s.longitude});
    if (d <= best) {
      best = d;
      nearest = &s;
    }
  }
  gUserStandCache = {true, lat, lon, nearest ? nearest->id : std::string{}};
  return gUserStandCache.stand;
}

void reserveStands() {
  if (!gReservedStand.empty()) {
    for (Stand& s : gStands)
      if (s.id == gReservedStand) s.reserved = true;
  }
  const std::string s = userStandAt(gUserSnapshot.lat, gUserSnapshot.lon);
  if (s.empty() || s == gReservedStand) return;
  for (Stand& stand : gStands)
    if (stand.id == s) stand.reserved = true;
}

void lf_parkingStep(bool atStart) {
  if (gParkFileWanted) {
    gParkFileWanted = false;
    clearMessage();
    if (std::string failure = lf_readParkedFile(); !failure.empty()) {
      // The user sees why the airport stays empty; the next step tries anew.
      setMessage(failure, true);
      failedParkFile();
    } else {
      gParkingStatus.minutesToUpdate.show(20);
      lf_calcStaticParking();
    }
    gv_enableReread();
    gf_flushLog();
    return;
  }
  const double lat = gUserSnapshot.lat, lon = gUserSnapshot.lon;
  if (!gf_userPositionKnown(lat, lon)) return;
  lf_sortParkAirports(lat, lon);
  if (gv_parkIcao.empty())
    findingRule(atStart);
  else
    leavingRule();
}

void lf_resetParkAirportSight() {
  gParkFileWanted = false;
  gLastFinding.clear();
  gUserStandCache = {};
  gv_parkIcao = {};
  gParkAirportSite = {};
}

}  // namespace orv
