#include "simlink/sim_events.h"

#include <array>
#include <mutex>

#include "foundation/log.h"
#include "simlink/sim_run_state.h"
#include "platform/simconnect/simconnect.h"
#include "simlink/sim_ids.h"
#include "simlink/sim_outbox.h"
#include "simlink/sim_session.h"

namespace orv {
namespace {

struct QueuedEvent {
  std::uint32_t eventId;
  std::uint32_t value;
};

// The events of one call are queued together, so that none of another thread's come between.
template <std::size_t N>
void lf_queue(std::uint32_t objectid, const QueuedEvent (&events)[N]) {
  std::array<EventOut, N> out;
  for (std::size_t i = 0; i < N; ++i) out[i] = EventOut{objectid, events[i].eventId, events[i].value};
  gEventOut.post(out.begin(), out.end());
}

std::uint32_t onOff(bool on) { return on ? 1u : 0u; }

}  // namespace

void simStartEngines(std::uint32_t objectid) { lf_queue(objectid, {{kEvEngineStart, 0}}); }

void simStopEngines(std::uint32_t objectid) { lf_queue(objectid, {{kEvEngineShutdown, 0}}); }

void simSetLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes, bool logo,
                  bool cabin) {
  lf_queue(objectid, {{kEvNavLights, onOff(nav)},
                      {kEvBeaconLights, onOff(beacon)},
                      {kEvLandingLights, onOff(landing)},
                      {kEvTaxiLights, onOff(taxi)},
                      {kEvStrobes, onOff(strobes)},
                      {kEvLogoLights, onOff(logo)},
                      {kEvCabinLights, onOff(cabin)}});
}

void simNavLights(std::uint32_t objectid, bool on) { lf_queue(objectid, {{kEvNavLights, onOff(on)}}); }

void simCabinLights(std::uint32_t objectid, bool on) { lf_queue(objectid, {{kEvCabinLights, onOff(on)}}); }

void simToggleAllLights(std::uint32_t objectid) { lf_queue(objectid, {{kEvAllLightsToggle, 0}}); }

// A lever's state is its index in the record, so an event goes out only on a change.
void gf_setFlaps(AcRecord& ac, std::int32_t index) {
  if (index == ac.flapsIdx || ac.acClass == kRotorcraft) return;
  if (index < 0 || index > 4)
    gf_logError("gf_setFlaps: invalid flaps index");
  else
    lf_queue(ac.objectid, {{kEvFlaps, kFlapsValues[static_cast<std::size_t>(index)]}});
  ac.flapsIdx = index;
}

void gf_setThrottle(AcRecord& ac, std::int32_t index) {
  if (index == ac.throttleIdx || index < 0 || index > 4) return;
  lf_queue(ac.objectid, {{kEvThrottle, kThrottleValues[static_cast<std::size_t>(index)]}});
  ac.throttleIdx = index;
}

void gf_setSpoilers(AcRecord& ac, bool on) {
  if (ac.acClass == kRotorcraft) return;
  lf_queue(ac.objectid, {{kEvSpoilers, on ? kSpoilersOnValue : 0u}});
}

void gf_setGear(AcRecord& ac, bool down) {
  if (ac.acClass == kRotorcraft) return;
  lf_queue(ac.objectid, {{kEvGear, onOff(down)}});
}

void simSetLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2) {
  if (gv_simRequestFailed.load() || !gf_isAiObject(objectid)) return;
  double block[3] = {spoilers, throttle1, throttle2};
  std::lock_guard lock(gSimMutex);
  SimConnect_SetDataOnSimObject(gv_simHandle, kDefLevers, objectid, SIMCONNECT_DATA_SET_FLAG_DEFAULT, 0, sizeof block,
                                block);
}

}  // namespace orv
