#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>

#include "foundation/message_area.h"
#include "foundation/parameters.h"
#include "ui/controls.h"
#include "ui/window_paint.h"
#include "ui_fixture.h"

namespace orv {

void PrintTo(const PaintedText& t, std::ostream* os) {
  *os << "(" << t.x << ", " << t.y << ") " << int(t.colour.r) << "," << int(t.colour.g) << "," << int(t.colour.b)
      << " \"" << t.text << "\"";
}

namespace {

constexpr Rect kSimBlock{397, 30, 426, 113};
constexpr Rect kRtBlock{425, 30, 454, 113};

std::optional<PaintedText> at(const PaintList& list, int x, int y) {
  for (const PaintedText& t : lf_textsOf(list))
    if (t.x == x && t.y == y) return t;
  return std::nullopt;
}

std::optional<PaintedText> find(const PaintList& list, std::string_view start) {
  for (const PaintedText& t : lf_textsOf(list))
    if (t.text.rfind(start, 0) == 0) return t;
  return std::nullopt;
}

Colour fillOf(const PaintList& list, Rect rect) {
  for (const PaintedFill& f : lf_fillsOf(list))
    if (f.rect == rect) return f.colour;
  ADD_FAILURE() << "no fill at " << rect.left << "," << rect.top;
  return kWhite;
}

using PaintTest = test::UiTest;

TEST_F(PaintTest, BeforeASessionTheStatusBandShowsMsfsARedBlockAndABlackRightBlock) {
  PaintList status = lf_statusBandPaint();
  EXPECT_EQ(at(status, 5, 35), (PaintedText{5, 35, kLime, "MSFS"}));
  EXPECT_EQ(fillOf(status, kSimBlock), kRed);
  EXPECT_EQ(fillOf(status, kRtBlock), kBlack);
  EXPECT_EQ(at(status, 5, 91), (PaintedText{5, 91, kRed, "# liveries: ..."}));
  EXPECT_EQ(at(status, 141, 91), (PaintedText{141, 91, kYellow, "# simaddon: ..."}));

  // Once the wait for RealTraffic has begun: red until connected, then by the traffic.
  gFeedStatus.rtWaiting.store(false);
  EXPECT_EQ(fillOf(lf_statusBandPaint(), kRtBlock), kRed);
  gFeedStatus.rtConnected.store(true);
  gFeedStatus.traffic.store(kFeedQuiet);
  EXPECT_EQ(fillOf(lf_statusBandPaint(), kRtBlock), kYellow);

  // The simulator side: yellow until a flight runs with a title, the title yellow while unknown.
  gSimStatus.connected.store(true);
  gSimStatus.name.store("MSFS 2020 SU15");
  gSimStatus.title.store("Asobo A320neo");
  EXPECT_EQ(fillOf(lf_statusBandPaint(), kSimBlock), kYellow);
  gSimStatus.running.store(true);
  gSimStatus.stand.store("GATE A12");
  status = lf_statusBandPaint();
  EXPECT_EQ(fillOf(status, kSimBlock), kLime);
  EXPECT_EQ(at(status, 5, 35), (PaintedText{5, 35, kLime, "MSFS 2020 SU15, user stand GATE A12"}));
  EXPECT_EQ(at(status, 5, 63), (PaintedText{5, 63, kYellow, "Asobo A320neo"}));
  gSimStatus.userModelKnown.store(true);
  EXPECT_EQ(at(lf_statusBandPaint(), 5, 63)->colour, kLime);
}

TEST_F(PaintTest, QnhShowsOnlyWhilePositiveAndTheWeatherComes) {
  gFeedStatus.rtConnected.store(true);
  gFeedStatus.traffic.store(kFeedFlowing);
  gFeedStatus.weather.store(kFeedQuiet);
  gEngineStatus.liveCount.store(7);
  for (int qnh : {0, -3}) {
    gFeedStatus.qnh.store(qnh);
    EXPECT_FALSE(find(lf_statusBandPaint(), "qnh:")) << qnh;
  }
  gFeedStatus.qnh.store(1013);
  const PaintList status = lf_statusBandPaint();
  EXPECT_EQ(at(status, 642, 63), (PaintedText{642, 63, kLime, "qnh: 1013"}));
  EXPECT_EQ(at(status, 642, 91), (PaintedText{642, 91, kLime, "live:   7"}));
  EXPECT_EQ(at(status, 458, 63), (PaintedText{458, 63, kYellow, "Weather"}));
  gFeedStatus.weather.store(kFeedStopped);
  EXPECT_FALSE(find(lf_statusBandPaint(), "qnh:"));
}

TEST_F(PaintTest, LabelColoursFollowTheirRules) {
  const auto colour = [](std::string_view text) { return find(lf_controlsBandLabels(), text)->colour; };
  MAX_PARK_SEL.set(0);
  MAX_LIVE_SEL.set(0);
  EXPECT_EQ(colour("Max park (static+live):"), kRed);
  EXPECT_EQ(colour("Max live (park incl):"), kRed);
  MAX_LIVE_SEL.set(10);
  EXPECT_EQ(colour("Max park (static+live):"), kYellow);
  EXPECT_EQ(colour("Max live (park incl):"), kBlack);
  EXPECT_EQ(find(lf_controlsBandLabels(), "Max park"), (PaintedText{171, 315, kYellow, "Max park (static+live):"}));

  lf_createControls();
  lf_enableControl(LIGHT_AIRCRAFT.controlId, false);
  GUID_CHANGES.set(false);
  AUTO_RANGE.set(false);
  gv_staticUpdateRunning.store(true);
  EXPECT_EQ(colour("Light aircraft"), kGrey);
  EXPECT_EQ(colour("Helicopters"), kBlack);
  EXPECT_EQ(colour("GUID changes"), kYellow);
  EXPECT_EQ(colour("Scan for liveries"), kYellow);
  EXPECT_EQ(colour("Ah:"), kGrey);
  EXPECT_EQ(colour("Airport parking"), kYellow);

  // The countdown only while parking is possible and no update runs.
  gParkingStatus.parkingPossible.store(true);
  gParkingStatus.minutesToUpdate.store(7);
  EXPECT_FALSE(find(lf_controlsBandLabels(), "(next in"));
  gv_staticUpdateRunning.store(false);
  EXPECT_EQ(find(lf_controlsBandLabels(), "(next in"), (PaintedText{5, 343, kBlack, "(next in 7 min)"}));
}

TEST_F(PaintTest, TheMessageBandIsRedForAnErrorAndLimeOtherwiseWithYellowText) {
  MessageAreaText area;
  area.messageText = "Waiting for MSFS 2020 ...";
  PaintList band = lf_messageBandPaint(area);
  EXPECT_EQ(fillOf(band, bandRect(Band::Message)), kLime);
  EXPECT_EQ(at(band, 3, 455), (PaintedText{3, 455, kYellow, "Waiting for MSFS 2020 ..."}));
  area.errorText = "41: Orvane must be run from the Orvane folder!";
  band = lf_messageBandPaint(area);
  EXPECT_EQ(fillOf(band, bandRect(Band::Message)), kRed);
  EXPECT_EQ(at(band, 3, 455)->text, area.errorText);

  setError("boom");
  const PaintList all = lf_windowPaint();
  EXPECT_EQ(fillOf(all, bandRect(Band::Message)), kRed);
  EXPECT_EQ(lf_textsOf(all).back(), (PaintedText{3, 455, kYellow, "boom"}));
  gf_resetMessageArea();
}

TEST_F(PaintTest, TheParkAirportBandShowsTheAirportOnlyWhenOneIsSet) {
  EXPECT_TRUE(lf_parkAirportBandPaint().empty());
  ParkingStatus& s = gParkingStatus;
  s.parkCode.store("EDDF");
  s.parkName.store("Frankfurt");
  s.parkPublisher.store("Aerosoft");
  s.handmadeMark.store(true);
  s.rtTrafficWeek.store(12);
  s.softMark.store(true);
  s.weekMark.store(true);
  s.reservedStand.store("V155");
  s.fitStatic.store(4.0f);
  PaintList band = lf_parkAirportBandPaint();
  EXPECT_EQ(at(band, 5, 399), (PaintedText{5, 399, kYellow, "EDDF"}));
  EXPECT_EQ(at(band, 45, 399), (PaintedText{45, 399, kLime, " Frankfurt, Aerosoft (h), wk=12"}));
  EXPECT_EQ(at(band, 370, 399)->text, "*WS*");
  EXPECT_EQ(at(band, 571, 399), (PaintedText{571, 399, kRed, "reserved stand: V155"}));
  EXPECT_EQ(at(band, 708, 427)->text, "no max park live");
  EXPECT_FALSE(at(band, 430, 427));

  s.maxParkShown.store(100);
  s.maxParkPercent.store(30);
  s.staticCount.store(57);
  s.removalsLeft.store(3);
  band = lf_parkAirportBandPaint();
  EXPECT_EQ(at(band, 430, 427)->text, "static:  57");
  EXPECT_EQ(at(band, 500, 427), (PaintedText{500, 427, kYellow, " (3)"}));
  EXPECT_FALSE(at(band, 571, 427));  // no static fit with week data
  EXPECT_EQ(at(band, 708, 427)->text, "max park: 100 (=30 %)");
  s.weekMark.store(false);
  EXPECT_EQ(at(lf_parkAirportBandPaint(), 571, 427)->text, "average fit: 4.0");
}

}  // namespace
}  // namespace orv
