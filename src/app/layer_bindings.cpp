#include "app/layer_bindings.h"

#include "engine/engine_hooks.h"
#include "engine/park_airport_site.h"
#include "feed/traffic_reader.h"
#include "feed/rt_position.h"
#include "parking/park_airport_sight.h"
#include "parking/parking_hooks.h"
#include "parking/static_placement.h"
#include "simlink/sim_port_binding.h"
#include "ui/window_hooks.h"

namespace orv {
namespace {

// The Traffic Reader keeps ground reports only around the park airport.
void parkAirportToFeed() {
  if (gParkAirportSite.chosen)
    gTrafficDecoder.setParkAirport(gParkAirportSite.lat, gParkAirportSite.lon, gParkAirportSite.elevationFt);
  else
    gTrafficDecoder.clearParkAirport();
}

void userStandAtHook(double lat, double lon, std::string& stand) { stand = userStandAt(lat, lon); }

}  // namespace

void lf_bindLayers() {
  lf_connectWindowHooks();
  gf_bindSimLink();
  gv_feedPositionStep.set(lf_sendPosition);
  gv_placeNextStatic.set(lf_placeNextStatic);
  gv_parkAirportChanged.set(parkAirportToFeed);
  gv_userStandAt.set(userStandAtHook);
}

}  // namespace orv
