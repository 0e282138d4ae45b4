#pragma once
// Where the main window opens: the saved position, read before the parameters are, and
// kept on a monitor so that the user can always grab the window.
#include "platform/window/window_layer.h"

namespace orv {

// Pixels of the window that stay inside the work area at the least.
inline constexpr int kVisibleMargin = 48;

// Reads MAIN_WINDOW_X and MAIN_WINDOW_Y from parameters.xml for the window alone, then keeps
// the position on screen with the defaults as fallback. An unloadable file is kept as a
// generation and removed; a missing file leaves both values as they are.
void lf_readWindowPosition();

// A saved position at a limit of its parameter means "no position": it takes the fallback
// and is saved. Then the window rectangle is held to the nearest monitor's work area with
// 48 pixels visible; a changed position is stored, saved, and the window moved. The window's
// size is fixed, so its rectangle is known before the window exists.
// At the end of the program: the restored window's left and top go into MAIN_WINDOW_X and
// MAIN_WINDOW_Y, held to their limits and saved, then kept on screen with the values the two
// parameters held before as fallback.
void lf_saveWindowPosition();

void lf_keepOnScreen(int fallbackX, int fallbackY, int width = kWindowWidth, int height = kWindowHeight);

}  // namespace orv
