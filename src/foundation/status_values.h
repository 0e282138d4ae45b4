#pragma once
// What the main window shows, one block for each subsystem that publishes it. The blocks
// live here, in the layer every subsystem may use; the window's painter reads them.
#include <chrono>

#include "foundation/shown_value.h"

namespace orv {

// Feed and weather state: 1 data flows, 2 no data lately, 3 stopped.
inline constexpr int kFeedFlowing = 1;
inline constexpr int kFeedQuiet = 2;
inline constexpr int kFeedStopped = 3;

// The simulator link: status band, simulator side.
struct SimLinkStatus {
  ShownValue<bool, ShownBand::Status> connected{false};
  ShownValue<bool, ShownBand::Status> running{false};  // last value of the "Sim" event
  ShownText<ShownBand::Status> name;                     // simulator and its version
  // The program's holder of gv_userModelKnown: the title is drawn as a known aircraft.
  ShownValue<bool, ShownBand::Status> userModelKnown{false};
  ShownText<ShownBand::Status> title;  // the user aircraft's title, or the text that replaces it
  ShownText<ShownBand::Status> stand;  // the stand under the user aircraft
};

// The RealTraffic feed: status band, feed side.
struct FeedStatus {
  ShownValue<bool, ShownBand::Status> rtWaiting{true};     // the run has not reached the wait for RealTraffic
  ShownValue<bool, ShownBand::Status> rtConnected{false};  // RealTraffic link up, or no link needed
  // The program's holder of gv_rtEditionText: "RT {} edition: {}", empty when unknown.
  ShownText<ShownBand::Status> rtEdition;
  ShownValue<int, ShownBand::Status> traffic{kFeedStopped};
  ShownValue<int, ShownBand::Status> weather{kFeedStopped};
  ShownValue<int, ShownBand::Status> qnh{0};
};

// The livery and airport scans: status band counts.
struct ScanStatus {
  ShownValue<unsigned, ShownBand::Status> liveries{0};
  ShownValue<unsigned, ShownBand::Status> simAddonAirports{0};
  ShownValue<unsigned, ShownBand::Status> thirdPartyAirports{0};
};

// The engine: status band.
struct EngineStatus {
  ShownValue<unsigned, ShownBand::Status> liveCount{0};  // live aircraft in the simulator, not parked
};

// Parking: its figures beside the controls, and the park airport band.
struct ParkingStatus {
  // Controls band.
  ShownValue<int, ShownBand::Controls> minutesToUpdate{20};
  // Parking at the park airport is possible at all; the countdown is shown only then.
  ShownValue<bool, ShownBand::Controls> parkingPossible{false};
  // The tblo package waits to be mailed.
  ShownValue<bool, ShownBand::Controls> tbloRequest{false};
  // Result of the callsign to object id lookup, drawn beside its combo box.
  ShownText<ShownBand::Controls> objectIdText;

  // Park airport band.
  ShownValue<unsigned, ShownBand::ParkAirport> parkedLiveCount{0};
  ShownValue<unsigned, ShownBand::ParkAirport> staticCount{0};
  ShownText<ShownBand::ParkAirport> parkCode;  // empty while no park airport is set
  ShownText<ShownBand::ParkAirport> parkName;
  ShownText<ShownBand::ParkAirport> parkPublisher;
  ShownText<ShownBand::ParkAirport> reservedStand;  // empty while no stand is reserved
  ShownValue<bool, ShownBand::ParkAirport> handmadeMark{false};
  ShownValue<bool, ShownBand::ParkAirport> fileLoadedMark{false};
  ShownValue<bool, ShownBand::ParkAirport> reservedMark{false};
  ShownValue<bool, ShownBand::ParkAirport> weekMark{false};
  ShownValue<bool, ShownBand::ParkAirport> softMark{false};
  ShownValue<int, ShownBand::ParkAirport> rtTrafficWeek{0};
  ShownText<ShownBand::ParkAirport> qualityText;
  ShownValue<unsigned, ShownBand::ParkAirport> standCount{0};
  ShownValue<unsigned, ShownBand::ParkAirport> learnedUpdatesShown{0};
  // Average fit of the live parked and of the static aircraft, in hours; -1 while unset.
  ShownValue<float, ShownBand::ParkAirport> fitParkedLive{-1.0f};
  ShownValue<float, ShownBand::ParkAirport> fitStatic{-1.0f};
  ShownValue<int, ShownBand::ParkAirport> maxParkShown{0};
  ShownValue<int, ShownBand::ParkAirport> maxParkPercent{0};
  ShownValue<unsigned, ShownBand::ParkAirport> removalsLeft{0};  // removal list entries during a static update
};

extern SimLinkStatus gSimStatus;
extern FeedStatus gFeedStatus;
extern ScanStatus gScanStatus;
extern EngineStatus gEngineStatus;
extern ParkingStatus gParkingStatus;

// Window creation must not paint from values that are not constructed yet: waits for them,
// polling every 50 ms, and gives up (false) after a second.
bool lf_waitForWindowState(std::chrono::milliseconds poll = std::chrono::milliseconds(50),
                           std::chrono::milliseconds limit = std::chrono::seconds(1));

// The per-second refresh of the aircraft counts: each band at most once, and only when one
// of its counts changed.
void lf_showAircraftCounts(unsigned live, unsigned parkedLive, unsigned statics);

// At the reset of a run: the status band as before a run has started (feeds stopped,
// waiting for RealTraffic). Repaints the band once when anything changed.
void lf_resetStatusBand();
// No park airport: its band empty, the fit figures unset.
void lf_clearParkAirportBand();

}  // namespace orv
