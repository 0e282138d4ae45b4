#include "ui/window_state.h"

#include <thread>

namespace orv {

namespace {
// Constant-initialised, so it can be asked before the state's own construction has run.
constinit std::atomic<bool> gStateReady{false};

void invalidateIf(bool changed, Band band) {
  if (changed) gf_window().invalidate(band);
}
}  // namespace

WindowState::WindowState() { gStateReady.store(true); }

WindowState gWindowState;

bool lf_waitForWindowState(std::chrono::milliseconds poll, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!gStateReady.load()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(poll);
  }
  return true;
}

void lf_showAircraftCounts(unsigned live, unsigned parkedLive, unsigned statics) {
  WindowState& s = gWindowState;
  invalidateIf(s.liveCount.store(live), Band::Status);
  // Both stores must run, so no short-circuit here.
  const bool parkedChanged = s.parkedLiveCount.store(parkedLive);
  const bool staticChanged = s.staticCount.store(statics);
  invalidateIf(parkedChanged || staticChanged, Band::ParkAirport);
}

void lf_resetStatusBand() {
  WindowState& s = gWindowState;
  bool changed = false;
  changed |= s.simConnected.store(false);
  changed |= s.simRunningShown.store(false);
  changed |= s.simName.store({});
  changed |= s.userModelKnown.store(false);
  changed |= s.titleText.store({});
  changed |= s.standText.store({});
  changed |= s.rtWaiting.store(true);
  changed |= s.rtConnected.store(false);
  changed |= s.rtEditionText.store({});
  changed |= s.trafficStatus.store(kFeedStopped);
  changed |= s.weatherStatus.store(kFeedStopped);
  changed |= s.liveryCount.store(0);
  changed |= s.simAddonCount.store(0);
  changed |= s.thirdPartyCount.store(0);
  changed |= s.qnhShown.store(0);
  changed |= s.liveCount.store(0);
  invalidateIf(changed, Band::Status);
}

void lf_clearParkAirportBand() {
  WindowState& s = gWindowState;
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
  invalidateIf(changed, Band::ParkAirport);
}

}  // namespace orv
