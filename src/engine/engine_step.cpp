#include "engine/engine_step.h"

#include <fmt/format.h>

#include "engine/ac_text.h"
#include "engine/aircraft_removal.h"
#include "engine/engine_hooks.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/motion.h"
#include "engine/position_exchange.h"
#include "engine/sim_notice_queue.h"
#include "engine/sim_notices.h"
#include "engine/sim_port.h"
#include "engine/position_stream.h"
#include "engine/spawning.h"
#include "engine/traffic_intake.h"
#include "foundation/log.h"

namespace orv {
namespace {

std::string lf_latLonText(double lat, double lon) { return fmt::format("{:.6f},{:.6f}", lat, lon); }

void lf_updateActive(LiveAc& ac) {
  if (ac.stream.empty()) {
    gf_logError("{} stream empty ? {}, hexid:{}, objectid:{}, alt:{:.0f} ft, lalo:{}, TAS:{:.0f}", "updateLiveAc",
                gf_acText(ac), ac.hexid, ac.objectid, ac.alt, lf_latLonText(ac.lat, ac.lon), ac.outTas);
    removeAircraftFromSim(ac);
    return;
  }
  if (gv_tick >= ac.stream.front().tick) {
    nextPosMain(ac);
    ac.outVs = ac.vsNow / 60.0;
    ac.outTas = ac.stream.empty() || ac.stream.front().stopped ? 0.0 : ac.speedNow;
    if (ac.simState != kActive) return;
  }
  if (ac.stream.empty()) return;
  if (!ac.stream.front().stopped) lf_motionStep(ac);
  if (ac.objectid == 0) {
    gf_logError("{} objectid=0? hexid: {},cs:{}, reg:{}, aimo:{} sz:{}", "updateLiveAc", ac.hexid, ac.cs, ac.reg,
                gf_acCodeText(ac.code), ac.stream.size());
    removeAircraftFromSim(ac);
    return;
  }
  gPositionOut.engine().push_back(
      PositionOut{ac.lat, ac.lon, ac.pitch, ac.bank, ac.heading, ac.alt, ac.outVs, ac.outTas, ac.objectid});
}

// Creations and removals at the pace the simulator digests: ten removals and two
// creations a second at most, live aircraft before parked ones.
void lf_runQueues() {
  if (gv_tick % 10 == 0 && !gRemoveQueue.empty()) {
    gf_sim().queueRemove(gRemoveQueue.front());
    gRemoveQueue.pop_front();
  }
  if (gv_tick % 50 != 0) return;
  if (!gLiveAddQueue.empty()) {
    gf_sim().queueCreate(gLiveAddQueue.front());
    gLiveAddQueue.pop_front();
    return;
  }
  if (!gParkedAddQueue.empty()) {
    gf_sim().queueCreate(gParkedAddQueue.front());
    gParkedAddQueue.pop_front();
  }
  gv_placeNextStatic();
}

void lf_takeAddStack() {
  if (gAddStack.empty()) return;
  const std::uint32_t hexid = gAddStack.back();
  gAddStack.pop_back();
  const int i = gf_findLiveAc(hexid);
  if (i < 0) return;
  const LiveAc& ac = gLiveAc[static_cast<std::size_t>(i)];
  if (ac.cs.empty()) {
    gf_log("{} {} objectid = 0?", "lf_handleAddingStack", gf_acText(ac));
    return;
  }
  gLiveAddQueue.push_back(AddRequest{ac.lat, ac.lon, ac.alt, ac.pitch * kDegreesPerRadian, ac.bank * kDegreesPerRadian,
                                     ac.heading * kDegreesPerRadian, 0, 0, ac.cs, ac.title, ac.hexid});
}

void lf_periodicRequests() {
  if (gv_tick % 20 == 0) {
    gf_sim().requestAircraftInRange();
    gv_feedPositionStep();
  }
  if (gv_tick % 100 == 0) gf_sim().refreshUserSnapshot();
}

}  // namespace

bool updateLiveAc(LiveAc& ac) {
  try {
    if (ac.simState == kBuffer)
      lf_bufferStep(ac);
    else if (ac.simState == kActive)
      lf_updateActive(ac);
  } catch (const std::exception& e) {
    gf_logAcFault("updateLiveAc", e.what(), ac);
  }
  return ac.erase || ac.cancelled;
}

void lf_takeSimNotices() {
  // The run thread's own copy: notices are handled without holding the client up.
  static std::vector<SimNotice> notices;
  gSimNotices.takeAll(notices);
  lf_handleNotices(notices);
}

void lf_handleAddingStack() {
  lf_takeSimNotices();
  bool compact = false;
  for (LiveAc& ac : gLiveAc) compact |= updateLiveAc(ac);
  if (compact) gf_compactLiveAc();
  gPositionOut.handOver();
  lf_runQueues();
  lf_takeTrafficMessages();
  lf_takeAddStack();
  lf_periodicRequests();
  ++gv_tick;
}

}  // namespace orv
