#pragma once
// What the main window paints, as a list of drawing operations made from the window state.
// A windowed backend draws the list as it stands, in order, into its off-screen bitmap; the
// list itself draws nothing, so every colour and text can be checked without a display.
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "foundation/message_area.h"
#include "platform/window/window_layer.h"

namespace orv {

struct Colour {
  std::uint8_t r = 0, g = 0, b = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour kBlack{0, 0, 0};            // upper bands, labels
inline constexpr Colour kRed{255, 0, 0};            // fault
inline constexpr Colour kYellow{255, 255, 0};       // attention; message text
inline constexpr Colour kLime{50, 205, 50};         // all is well; text on black; message band
inline constexpr Colour kLightBlue{153, 204, 255};  // controls band, edit and combo backgrounds
inline constexpr Colour kGrey{160, 160, 160};       // label of a disabled control
inline constexpr Colour kWhite{255, 255, 255};      // separator lines

// Where the request for the tblo package asks it to be mailed.
inline constexpr std::string_view kTbloMailAddress = "airports@orvane.app";

struct PaintedFill {
  Rect rect;
  Colour colour;
  friend bool operator==(const PaintedFill&, const PaintedFill&) = default;
};

// A line from (x1, y1) to (x2, y2).
struct PaintedLine {
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  Colour colour;
  friend bool operator==(const PaintedLine&, const PaintedLine&) = default;
};

// A text with a transparent background, its top left at (x, y).
struct PaintedText {
  int x = 0, y = 0;
  Colour colour;
  std::string text;
  friend bool operator==(const PaintedText&, const PaintedText&) = default;
};

using PaintOp = std::variant<PaintedFill, PaintedLine, PaintedText>;
using PaintList = std::vector<PaintOp>;

// Each band's own content, in drawing order. Empty texts are left out.
PaintList lf_titleBandPaint();
PaintList lf_statusBandPaint();
PaintList lf_controlsBandLabels();
PaintList lf_parkAirportBandPaint();
// The message band's fill (red for an error, else lime) and its yellow text.
PaintList lf_messageBandPaint(const MessageAreaText& area);

// The whole client area in drawing order: band fills and white lines, title texts, black
// lines, status band, controls labels, park airport band, message text.
PaintList lf_windowPaint();

std::vector<PaintedText> lf_textsOf(const PaintList& list);
std::vector<PaintedFill> lf_fillsOf(const PaintList& list);

}  // namespace orv
