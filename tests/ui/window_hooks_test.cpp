#include <gtest/gtest.h>

#include "foundation/message_area.h"
#include "ui/window_hooks.h"
#include "ui_fixture.h"

namespace orv {
namespace {

using test::UiTest;

TEST_F(UiTest, EachShownBandIsTheWindowsBandOfTheSameName) {
  EXPECT_EQ(lf_windowBand(ShownBand::Title), Band::Title);
  EXPECT_EQ(lf_windowBand(ShownBand::Status), Band::Status);
  EXPECT_EQ(lf_windowBand(ShownBand::Controls), Band::Controls);
  EXPECT_EQ(lf_windowBand(ShownBand::ParkAirport), Band::ParkAirport);
  EXPECT_EQ(lf_windowBand(ShownBand::Message), Band::Message);
}

TEST_F(UiTest, TheMessageAreaAsksTheWindowThreadToPaint) {
  while (window.pending() > 0) window.waitMessage();
  setMessage("hello");
  ASSERT_EQ(window.pending(), 1u);
  EXPECT_EQ(window.waitMessage().id, WM_PAINT_MESSAGE);
  EXPECT_EQ(window.invalidations(Band::Message), 0u);
  gf_resetMessageArea();
}

}  // namespace
}  // namespace orv
