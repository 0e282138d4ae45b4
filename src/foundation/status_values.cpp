#include "foundation/status_values.h"

#include <atomic>
#include <thread>

namespace orv {

namespace {
// Constant-initialised, so it can be asked before the blocks' own construction has run.
constinit std::atomic<bool> gStatusReady{false};

// Constructed after the blocks above it in this file, so it marks all of them as ready.
struct ReadyMark {
  ReadyMark() { gStatusReady.store(true); }
};

void repaintIf(bool changed, ShownBand band) {
  if (changed) gf_repaint(band);
}
}  // namespace

SimLinkStatus gSimStatus;
FeedStatus gFeedStatus;
ScanStatus gScanStatus;
EngineStatus gEngineStatus;
ParkingStatus gParkingStatus;

namespace {
ReadyMark gReadyMark;
}  // namespace

bool lf_waitForWindowState(std::chrono::milliseconds poll, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!gStatusReady.load()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(poll);
  }
  return true;
}

void lf_showAircraftCounts(unsigned live, unsigned parkedLive, unsigned statics) {
  repaintIf(gEngineStatus.liveCount.store(live), ShownBand::Status);
  // Both stores must run, so no short-circuit here.
  const bool parkedChanged = gParkingStatus.parkedLiveCount.store(parkedLive);
  const bool staticChanged = gParkingStatus.staticCount.store(statics);
  repaintIf(parkedChanged || staticChanged, ShownBand::ParkAirport);
}

void lf_resetStatusBand() {
  bool changed = false;
  SimLinkStatus& sim = gSimStatus;
  changed |= sim.connected.store(false);
  changed |= sim.running.store(false);
  changed |= sim.name.store({});
  changed |= sim.userModelKnown.store(false);
  changed |= sim.title.store({});
  changed |= sim.stand.store({});
  FeedStatus& feed = gFeedStatus;
  changed |= feed.rtWaiting.store(true);
  changed |= feed.rtConnected.store(false);
  changed |= feed.rtEdition.store({});
  changed |= feed.traffic.store(kFeedStopped);
  changed |= feed.weather.store(kFeedStopped);
  changed |= feed.qnh.store(0);
  ScanStatus& scans = gScanStatus;
  changed |= scans.liveries.store(0);
  changed |= scans.simAddonAirports.store(0);
  changed |= scans.thirdPartyAirports.store(0);
  changed |= gEngineStatus.liveCount.store(0);
  repaintIf(changed, ShownBand::Status);
}

void lf_clearParkAirportBand() {
  ParkingStatus& s = gParkingStatus;
  bool changed = false;
  changed |= s.parkedLiveCount.store(0);
  changed |= s.staticCount.store(0);
  changed |= s.parkCode.store({});
  changed |= s.parkName.store({});
  changed |= s.parkPublisher.store({});
  changed |= s.reservedStand.store({});
  changed |= s.handmadeMark.store(false);
  changed |= s.fileLoadedMark.store(false);
  changed |= s.reservedMark.store(false);
  changed |= s.weekMark.store(false);
  changed |= s.softMark.store(false);
  changed |= s.rtTrafficWeek.store(0);
  changed |= s.qualityText.store({});
  changed |= s.standCount.store(0);
  changed |= s.learnedUpdatesShown.store(0);
  changed |= s.fitParkedLive.store(-1.0f);
  changed |= s.fitStatic.store(-1.0f);
  changed |= s.maxParkShown.store(0);
  changed |= s.maxParkPercent.store(0);
  changed |= s.removalsLeft.store(0);
  repaintIf(changed, ShownBand::ParkAirport);
  // Without a park airport there is nothing to park, and no update to count down to.
  bool controls = s.parkingPossible.store(false);
  controls |= s.minutesToUpdate.store(20);
  repaintIf(controls, ShownBand::Controls);
}

}  // namespace orv
