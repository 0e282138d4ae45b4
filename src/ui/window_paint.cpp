#include "ui/window_paint.h"

#include <fmt/format.h>

#include "foundation/parameters.h"
#include "foundation/program_info.h"
#include "foundation/status_values.h"
#include "parking/parking_run_state.h"
#include "ui/controls.h"

namespace orv {

namespace {

constexpr Rect kSimBlock{397, 30, 426, 113};
constexpr Rect kRtBlock{425, 30, 454, 113};
constexpr int kParkRow1 = 399;
constexpr int kParkRow2 = 427;

void text(PaintList& list, int x, int y, Colour colour, std::string s) {
  if (!s.empty()) list.emplace_back(PaintedText{x, y, colour, std::move(s)});
}

void fill(PaintList& list, Rect rect, Colour colour) { list.emplace_back(PaintedFill{rect, colour}); }

void line(PaintList& list, int x1, int y1, int x2, int y2, Colour colour) {
  list.emplace_back(PaintedLine{x1, y1, x2, y2, colour});
}

bool flowsOrQuiet(int status) { return status == kFeedFlowing || status == kFeedQuiet; }

Colour flowColour(int status) { return status == kFeedFlowing ? kLime : kYellow; }

std::string fitText(float hours) { return fmt::format("{:.1f}", hours); }

// Max park and Max live: both at 0 is a fault, one at 0 asks for attention.
Colour maxColour(std::int32_t own) {
  if (MAX_PARK_SEL.value == 0 && MAX_LIVE_SEL.value == 0) return kRed;
  return own == 0 ? kYellow : kBlack;
}

bool rowChecked(const ControlRow& row) {
  return row.kind == ControlKind::Check && static_cast<const CheckboxParameter*>(row.control)->value;
}

Colour labelColour(const ControlRow& row, const ControlLabel& label) {
  switch (label.rule) {
    case LabelRule::Plain: return kBlack;
    case LabelRule::YellowWhenSet: return rowChecked(row) ? kYellow : kBlack;
    case LabelRule::YellowWhenOff: return rowChecked(row) ? kBlack : kYellow;
    case LabelRule::GreyWhenOff: return rowChecked(row) ? kBlack : kGrey;
    case LabelRule::GreyWhenAutoRangeOff: return AUTO_RANGE.value ? kBlack : kGrey;
    case LabelRule::GreyWhenDisabled: return lf_controlEnabled(row.id()) ? kBlack : kGrey;
    case LabelRule::StaticUpdate: return gv_staticUpdateRunning.load() ? kYellow : kBlack;
    case LabelRule::MaxPark: return maxColour(MAX_PARK_SEL.value);
    case LabelRule::MaxLive: return maxColour(MAX_LIVE_SEL.value);
  }
  return kBlack;
}

void bandFills(PaintList& list, const MessageAreaText& area) {
  fill(list, bandRect(Band::Title), kBlack);
  fill(list, bandRect(Band::Status), kBlack);
  fill(list, bandRect(Band::Controls), kLightBlue);
  fill(list, bandRect(Band::ParkAirport), kBlack);
  fill(list, bandRect(Band::Message), area.errorText.empty() ? kLime : kRed);
  for (int y : {28, 113, 392, 449}) line(list, 0, y, kWindowWidth, y, kWhite);
}

void blackLines(PaintList& list) {
  line(list, 0, 140, kWindowWidth, 140, kBlack);
  line(list, 0, 308, kWindowWidth, 308, kBlack);
  for (int y : {168, 196, 224, 252, 280}) line(list, 0, y, 642, y, kBlack);
  line(list, 642, 140, 642, 308, kBlack);
  line(list, 425, 29, 425, 112, kBlack);
}

void append(PaintList& to, PaintList from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

}  // namespace

PaintList lf_titleBandPaint() {
  PaintList list;
  text(list, 3, 7, kLime, fmt::format("Version {}", kRunningVersion.text()));
  text(list, 390, 7, kLime, std::string(kProgramName));
  text(list, 632, 7, kLime, fmt::format("for {}", kSimulators));
  return list;
}

PaintList lf_statusBandPaint() {
  const SimLinkStatus& sim = gSimStatus;
  const FeedStatus& feed = gFeedStatus;
  const ScanStatus& scans = gScanStatus;
  PaintList list;

  const bool connected = sim.connected.load();
  const std::string title = sim.title.load();
  const Colour simColour = !connected                             ? kRed
                           : sim.running.load() && !title.empty() ? kLime
                                                                  : kYellow;
  fill(list, kSimBlock, simColour);
  text(list, 398, 63, kLime, "Sim");
  if (connected) {
    const std::string stand = sim.stand.load();
    text(list, 5, 35, simColour, stand.empty() ? sim.name.load() : sim.name.load() + ", user stand " + stand);
    text(list, 5, 63, sim.userModelKnown.load() ? simColour : kYellow, title);
  } else {
    text(list, 5, 35, kLime, "MSFS");
  }

  const unsigned liveries = scans.liveries.load();
  if (liveries == 0)
    text(list, 5, 91, kRed, "# liveries: ...");
  else
    text(list, 5, 91, kLime, fmt::format("# liveries: {}", liveries));
  const auto count = [&](int x, std::string_view label, unsigned n) {
    if (n == 0)
      text(list, x, 91, kYellow, fmt::format("{}...", label));
    else
      text(list, x, 91, kLime, fmt::format("{}{}", label, n));
  };
  count(141, "# simaddon: ", scans.simAddonAirports.load());
  count(278, "# thirdp: ", scans.thirdPartyAirports.load());

  const bool rtConnected = feed.rtConnected.load();
  const int traffic = feed.traffic.load();
  const int weather = feed.weather.load();
  const Colour rtColour = !rtConnected ? kRed : flowColour(traffic);
  fill(list, kRtBlock, feed.rtWaiting.load() ? kBlack : rtColour);
  text(list, 430, 63, kLime, "RT");
  if (rtConnected) {
    text(list, 458, 35, rtColour, feed.rtEdition.load());
    if (flowsOrQuiet(weather)) text(list, 458, 63, flowColour(weather), "Weather");
    if (flowsOrQuiet(traffic)) text(list, 458, 91, flowColour(traffic), "Traffic");
    const int qnh = feed.qnh.load();
    if (flowsOrQuiet(weather) && qnh >= 1) text(list, 642, 63, kLime, fmt::format("qnh: {:4}", qnh));
    if (flowsOrQuiet(traffic)) text(list, 642, 91, kLime, fmt::format("live: {:3}", gEngineStatus.liveCount.load()));
  }
  return list;
}

PaintList lf_controlsBandLabels() {
  const ParkingStatus& s = gParkingStatus;
  PaintList list;
  for (const ControlRow& row : lf_controlLayout())
    for (const ControlLabel& label : row.labels) text(list, label.x, row.y(), labelColour(row, label), std::string(label.text));

  if (s.tbloRequest.load())
    text(list, 303, 175, kYellow, fmt::format("<=== Mail tblo.zip to {}, pls", kTbloMailAddress));
  if (s.parkingPossible.load() && !gv_staticUpdateRunning.load()) {
    const int minutes = s.minutesToUpdate.load();
    if (INITIAL_LOAD_ONLY.value)
      text(list, 5, 343, kBlack, "(no next ... )");
    else if (minutes >= 1 && minutes <= 19)
      text(list, 5, 343, kBlack, fmt::format("(next in {} min)", minutes));
  }
  if (!CALLSIGN_2_OBJECTID.value.empty()) text(list, 476, CALLSIGN_2_OBJECTID.y, kBlack, s.objectIdText.load());
  return list;
}

PaintList lf_parkAirportBandPaint() {
  const ParkingStatus& s = gParkingStatus;
  PaintList list;
  const std::string code = s.parkCode.load();
  if (code.empty()) return list;

  text(list, 5, kParkRow1, s.fileLoadedMark.load() ? kLime : kYellow, code);
  text(list, 45, kParkRow1, kLime,
       fmt::format(" {}, {}{}, wk={}", s.parkName.load(), s.parkPublisher.load(), s.handmadeMark.load() ? " (h)" : "",
                   s.rtTrafficWeek.load()));
  const bool soft = s.softMark.load();
  const bool week = s.weekMark.load();
  text(list, 370, kParkRow1, kLime, soft && week ? "*WS*" : soft ? "*S*" : week ? "*W*" : "");
  text(list, 430, kParkRow1, kLime, fmt::format("qf: {}", s.qualityText.load()));
  const std::string reserved = s.reservedStand.load();
  if (!reserved.empty())
    text(list, 571, kParkRow1, s.reservedMark.load() ? kLime : kRed, fmt::format("reserved stand: {}", reserved));
  text(list, 748, kParkRow1, kLime, fmt::format("# updates: {:4}", s.learnedUpdatesShown.load()));

  text(list, 5, kParkRow2, kLime, fmt::format("# stands: {:3}", s.standCount.load()));
  text(list, 111, kParkRow2, kLime, fmt::format("parked live: {:3}", s.parkedLiveCount.load()));
  const float fitLive = s.fitParkedLive.load();
  if (fitLive > 0) text(list, 249, kParkRow2, kLime, fmt::format("average fit: {}", fitText(fitLive)));
  const int maxPark = s.maxParkShown.load();
  if (maxPark > 0) {
    text(list, 430, kParkRow2, kLime, fmt::format("static: {:3}", s.staticCount.load()));
    const unsigned removals = s.removalsLeft.load();
    if (removals != 0) text(list, 500, kParkRow2, kYellow, fmt::format(" ({})", removals));
    const float fitStatic = s.fitStatic.load();
    if (!week && fitStatic > 0) text(list, 571, kParkRow2, kLime, fmt::format("average fit: {}", fitText(fitStatic)));
  }
  text(list, 708, kParkRow2, kLime,
       maxPark != 0 ? fmt::format("max park: {:3} (={} %)", maxPark, s.maxParkPercent.load())
                    : std::string("no max park live"));
  return list;
}

PaintList lf_messageBandPaint(const MessageAreaText& area) {
  PaintList list;
  const bool error = !area.errorText.empty();
  fill(list, bandRect(Band::Message), error ? kRed : kLime);
  text(list, 3, 455, kYellow, error ? area.errorText : area.messageText);
  return list;
}

PaintList lf_windowPaint() {
  // One copy of the message area, so that its fill and its text agree.
  const MessageAreaText area = gf_messageArea();
  PaintList list;
  bandFills(list, area);
  append(list, lf_titleBandPaint());
  blackLines(list);
  append(list, lf_statusBandPaint());
  append(list, lf_controlsBandLabels());
  append(list, lf_parkAirportBandPaint());
  for (PaintedText& t : lf_textsOf(lf_messageBandPaint(area))) list.emplace_back(std::move(t));
  return list;
}

std::vector<PaintedText> lf_textsOf(const PaintList& list) {
  std::vector<PaintedText> texts;
  for (const PaintOp& op : list)
    if (const auto* t = std::get_if<PaintedText>(&op)) texts.push_back(*t);
  return texts;
}

std::vector<PaintedFill> lf_fillsOf(const PaintList& list) {
  std::vector<PaintedFill> fills;
  for (const PaintOp& op : list)
    if (const auto* f = std::get_if<PaintedFill>(&op)) fills.push_back(*f);
  return fills;
}

}  // namespace orv
