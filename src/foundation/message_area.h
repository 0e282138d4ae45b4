#pragma once
// The one-line message area of the main window: an error, which stays until the run is
// reset, or a message, which ages out after 25 seconds. Any thread may write it.
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/hook.h"

namespace orv {

inline constexpr std::uint32_t kMessageLifeSeconds = 25;

// Shows a message unless an error stands; an empty text clears it.
void setMessage(std::string_view text, bool logIt = false);
void clearMessage();
// Shows an error; it replaces any message and any earlier error.
void setError(std::string_view text);

// Clears the error without a repaint: the next message or paint shows the area without it.
void gf_clearErrorText();
// Once a second: counts the second and clears a message that has stood long enough.
void gf_ageMessage();
// At the start of the process: no error, no message, the second counter back to 0.
void gf_resetMessageArea();
// At the reset of a run: the second counter back to 0. The texts stay; a restart clears them
// itself, and an error must stay readable.
void gf_resetMessageSeconds();

struct MessageAreaText {
  std::string errorText;
  std::string messageText;
  std::int32_t messageBornAt = 0;
  std::uint32_t secondCounter = 0;
};
// A copy for the painter.
MessageAreaText gf_messageArea();

// The window's thread paints the area anew when asked. Only the program knows the window, so it
// sets how to ask at start-up; until then a change asks nothing.
inline constinit Hook<> gf_paintMessageArea;

}  // namespace orv
