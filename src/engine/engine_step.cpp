#include "engine/engine_step.h"

#include "engine/engine_tables.h"
#include "engine/traffic_intake.h"

namespace orv {
namespace {

// Advances one aircraft; true when its record is to leave the table. Records in "buffer"
// only collect samples until spawning decides about them.
bool updateLiveAc(LiveAc&) { return false; }

// Creations and removals handed to the simulator client at their paced rates; the add
// stack; the fixed-rate requests. They come with the simulator link and the life cycle.
void lf_runQueues() {}
void lf_takeAddStack() {}
void lf_periodicRequests() {}

}  // namespace

// Their handling comes with the life cycle; until then they are taken and dropped so that
// the queue cannot grow.
void lf_takeSimNotices() {
  std::lock_guard lock(gNoticeMutex);
  gSimNotices.clear();
}

void lf_handleAddingStack() {
  lf_takeSimNotices();
  bool compact = false;
  for (LiveAc& ac : gLiveAc) compact |= updateLiveAc(ac);
  if (compact) gf_compactLiveAc();
  gf_exchangePositionOut();
  lf_runQueues();
  lf_takeTrafficMessages();
  lf_takeAddStack();
  lf_periodicRequests();
  ++gv_tick;
}

}  // namespace orv
