#include "engine/engine_tables.h"

#include <algorithm>

#include "engine/engine_tick.h"
#include "engine/position_exchange.h"
#include "engine/reserved_stand.h"
#include "engine/sim_notice_queue.h"
#include "engine/stand_contention.h"
#include "engine/traffic_queue.h"

namespace orv {

void gf_reserveEngineTables() {
  static bool reserved = false;
  if (reserved) return;
  reserved = true;
  gLiveAc.reserve(512);
  gParkedAc.reserve(256);
  gAddStack.reserve(64);
  gGhostList.reserve(64);
  gSimNotices.reserve(256);
  gNewObjects.reserve(128);
  gPositionOut.reserve(512);
}

void gf_clearEngineTables() {
  gLiveAc.clear();
  gParkedAc.clear();
  gAddStack.clear();
  gLiveAddQueue.clear();
  gParkedAddQueue.clear();
  gRemoveQueue.clear();
  gRouteQueue.clear();
  gGhostList.clear();
  gNewObjects.clear();
  gTrafficQueue.setEnabled(false);
  gTrafficQueue.clear();
  gSimNotices.clear();
  gPositionOut.clear();
}

void gf_resetEngine() {
  gf_clearEngineTables();
  gv_tick = 0;
  gReservedStand.clear();
  lf_resetCollisionState();
}

int gf_findLiveAc(std::uint32_t hexid) {
  for (std::size_t i = 0; i < gLiveAc.size(); ++i)
    if (gLiveAc[i].hexid == hexid) return static_cast<int>(i);
  return -1;
}

int gf_findLiveAcByObject(std::uint32_t objectid) {
  if (objectid == 0) return -1;
  for (std::size_t i = 0; i < gLiveAc.size(); ++i)
    if (gLiveAc[i].objectid == objectid) return static_cast<int>(i);
  return -1;
}

std::size_t gf_addLiveAc(LiveAc&& ac) {
  gLiveAc.push_back(std::move(ac));
  return gLiveAc.size() - 1;
}

void gf_eraseLiveAcAt(std::size_t index) {
  if (index >= gLiveAc.size()) return;
  if (index != gLiveAc.size() - 1) gLiveAc[index] = std::move(gLiveAc.back());
  gLiveAc.pop_back();
}

void gf_compactLiveAc() {
  std::erase_if(gLiveAc, [](const LiveAc& ac) { return ac.erase || ac.cancelled; });
}

}  // namespace orv
