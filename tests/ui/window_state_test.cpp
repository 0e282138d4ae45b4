#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include "foundation/status_values.h"
#include "ui_fixture.h"

namespace orv {
namespace {

using test::UiTest;

TEST_F(UiTest, EachValueInvalidatesItsOwnBandOnlyWhenItChanges) {
  // When a change is shown at all is the shown values' own test; here which band it reaches.
  EXPECT_TRUE(gEngineStatus.liveCount.show(3));
  EXPECT_TRUE(gSimStatus.title.show("Airbus A320neo"));
  EXPECT_TRUE(gParkingStatus.minutesToUpdate.show(19));
  EXPECT_FALSE(gParkingStatus.fitStatic.show(-1.0f));  // unset is the starting value
  EXPECT_TRUE(gParkingStatus.fitStatic.show(2.5f));
  EXPECT_EQ(window.invalidations(Band::Status), 2u);
  EXPECT_EQ(window.invalidations(Band::Controls), 1u);
  EXPECT_EQ(window.invalidations(Band::ParkAirport), 1u);
  EXPECT_EQ(window.invalidations(Band::Message), 0u);

  // The per-second counts: each band at most once, and only on a change.
  lf_showAircraftCounts(3, 0, 0);
  EXPECT_EQ(window.invalidations(Band::Status), 2u);
  EXPECT_EQ(window.invalidations(Band::ParkAirport), 1u);
  lf_showAircraftCounts(3, 2, 40);
  EXPECT_EQ(window.invalidations(Band::Status), 2u);
  EXPECT_EQ(window.invalidations(Band::ParkAirport), 2u);
  // The first park count changes alone: the second must still be written.
  lf_showAircraftCounts(4, 3, 38);
  EXPECT_EQ(window.invalidations(Band::Status), 3u);
  EXPECT_EQ(window.invalidations(Band::ParkAirport), 3u);
  EXPECT_EQ(gParkingStatus.staticCount.load(), 38u);

  // A reset invalidates once, and a second one not at all.
  gFeedStatus.rtWaiting.store(false);
  gFeedStatus.traffic.store(kFeedFlowing);
  lf_resetStatusBand();
  lf_resetStatusBand();
  EXPECT_EQ(window.invalidations(Band::Status), 4u);
  EXPECT_TRUE(gFeedStatus.rtWaiting.load());
  EXPECT_EQ(gFeedStatus.traffic.load(), kFeedStopped);
  EXPECT_EQ(gEngineStatus.liveCount.load(), 0u);
}

TEST_F(UiTest, APainterNeverReadsATextHalfWritten) {
  const std::string a(4096, 'a');
  const std::string b(4096, 'b');
  std::atomic<bool> done{false};
  std::thread writer([&] {
    for (int i = 0; i < 2000; ++i) gSimStatus.name.store(i % 2 ? a : b);
    done = true;
  });
  int torn = 0;
  while (!done) {
    const std::string seen = gSimStatus.name.load();
    if (!seen.empty() && seen != a && seen != b) ++torn;
  }
  writer.join();
  EXPECT_EQ(torn, 0);
}

}  // namespace
}  // namespace orv
