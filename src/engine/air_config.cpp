#include "engine/air_config.h"

#include "engine/engine_tables.h"
#include "engine/geodesy.h"
#include "engine/park_airport_site.h"
#include "engine/position_stream.h"
#include "engine/sim_port.h"

namespace orv {
namespace {

// Rotorcraft keep full power in every phase.
std::int32_t lf_power(const LiveAc& ac, std::int32_t index) { return ac.acClass == kRotorcraft ? 4 : index; }

bool lf_parkAirportNear(const LiveAc& ac) {
  return gParkAirportSite.chosen && gf_distance({gParkAirportSite.lat, gParkAirportSite.lon}, {ac.lat, ac.lon}) <= 10.0;
}

}  // namespace

void lf_cruiseConfig(LiveAc& ac) {
  if (ac.cruiseLights) return;
  ac.cruiseLights = 1;
  ac.lowLights = 0;
  gf_sim().setLights(ac.objectid, true, true, false, false, false, false, true);
  gf_sim().setThrottle(ac, lf_power(ac, 3));
  gf_sim().setGear(ac, false);
  gf_sim().setFlaps(ac, 0);
}

void lf_lowConfig(LiveAc& ac) {
  const bool lightsSent = !ac.lowLights;
  if (lightsSent) {
    ac.lowLights = 1;
    ac.cruiseLights = 0;
    gf_sim().setLights(ac.objectid, true, true, true, true, true, true, true);
  }
  const double approachHeight = ac.acClass >= kBuzjets && ac.acClass <= kHeavy ? 2050.0 : 625.0;
  if (ac.agl <= approachHeight) {
    lf_approachConfig(ac);
    return;
  }
  lf_relaxDueLimits(ac);
  if (!lightsSent) gf_sim().setLights(ac.objectid, true, true, true, true, true, true, true);  // the cabin lit again
  ac.approach = 0;
  ac.takingOff = 0;
  const double v = ac.stream[0].vs;
  if (v <= -250 && ac.throttleIdx == 3)
    gf_sim().setThrottle(ac, lf_power(ac, 2));
  else if (v > 400 && ac.throttleIdx == 4)
    gf_sim().setThrottle(ac, lf_power(ac, 3));
  if (ac.agl >= 2400) {
    gf_sim().setGear(ac, false);
    gf_sim().setFlaps(ac, 0);
    return;
  }
  if (v > 100) return;
  if (ac.agl >= 2000) {
    if (ac.flapsIdx == 0) gf_sim().setFlaps(ac, 1);
  } else if (ac.flapsIdx == 0 || ac.flapsIdx == 1) {
    gf_sim().setFlaps(ac, ac.flapsIdx + 1);
  }
}

void lf_approachConfig(LiveAc& ac) {
  gf_sim().setLights(ac.objectid, true, true, true, true, true, true, false);
  const bool near = lf_parkAirportNear(ac);
  const double v = ac.stream[0].vs;
  if (v <= -250) {
    if (ac.approach || !near) return;
    gf_sim().setThrottle(ac, lf_power(ac, 1));
    gf_sim().setFlaps(ac, 3);
    gf_sim().setGear(ac, true);
    gRouteQueue.push_back(ac.hexid);
    ac.approach = 1;
    ac.cleanConfig = 0;
    ac.standLat = ac.standLon = ac.standHeading = 0;
    ac.sid = 0;
    ac.standCargo = 0;
    ac.stageCount = 1;
    lf_widenDueLimits(ac);
    return;
  }
  if ((v > 600 || (ac.approach && !near)) && !ac.cleanConfig) {
    // The go-around.
    lf_relaxDueLimits(ac);
    gf_sim().setThrottle(ac, 4);
    gf_sim().setGear(ac, false);
    gf_sim().setFlaps(ac, 0);
    ac.cleanConfig = 1;
    ac.flareStage = 0;
    ac.approach = 0;
  }
}

}  // namespace orv
