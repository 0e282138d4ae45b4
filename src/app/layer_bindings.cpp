#include "app/layer_bindings.h"

#include "engine/engine_hooks.h"
#include "feed/rt_position.h"
#include "parking/static_placement.h"
#include "simlink/sim_port_binding.h"
#include "ui/window_hooks.h"

namespace orv {

void lf_bindLayers() {
  lf_connectWindowHooks();
  gf_bindSimLink();
  gv_feedPositionStep.set(lf_sendPosition);
  gv_placeNextStatic.set(lf_placeNextStatic);
}

}  // namespace orv
