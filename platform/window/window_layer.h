#pragma once
// The operations the logic needs from the main window. A backend (headless here,
// a real window elsewhere) implements them; the logic never knows which one runs.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

// Private messages posted to the main thread.
// The window's close button (the value of Win32's WM_CLOSE).
inline constexpr std::uint32_t WM_CLOSE = 0x0010;
inline constexpr std::uint32_t WM_START_RUN = 0x8001;
inline constexpr std::uint32_t WM_END_PROGRAM = 0x8002;
inline constexpr std::uint32_t WM_PAINT_MESSAGE = 0x8060;

inline constexpr int kWindowWidth = 880;
inline constexpr int kWindowHeight = 516;

enum class Band { Title, Status, Controls, ParkAirport, Message };

struct Rect {
  int left = 0, top = 0, right = 0, bottom = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

// Rectangle of a band in client coordinates.
Rect bandRect(Band band);

enum class ControlKind { Check, Button, Edit, Combo };

struct ControlSpec {
  std::uint16_t id = 0;
  ControlKind kind = ControlKind::Check;
  int x = 0, y = 0, width = 0, height = 0;
  bool enabled = true;
};

// One entry of the main thread's queue: a posted message, or the end of the loop.
struct WindowMessage {
  std::uint32_t id = 0;
  bool quit = false;
  int exitCode = 0;
};

class WindowLayer {
 public:
  virtual ~WindowLayer() = default;

  virtual bool createControl(const ControlSpec& placement) = 0;
  virtual bool setEnabled(std::uint16_t id, bool enabled) = 0;
  virtual bool setText(std::uint16_t id, std::string_view utf8) = 0;
  // Empty optional when no such control exists.
  virtual std::optional<std::string> text(std::uint16_t id) const = 0;
  virtual bool setChecked(std::uint16_t id, bool checked) = 0;
  virtual bool fillCombo(std::uint16_t id, const std::vector<std::string>& entries) = 0;
  virtual bool selectComboEntry(std::uint16_t id, int index) = 0;
  virtual void invalidate(Band band) = 0;

  // Window placement: the work area of the monitor nearest to a rectangle, and moving the window.
  virtual Rect nearestWorkArea(const Rect& window) const = 0;
  virtual bool moveWindow(int x, int y) = 0;
  // The window's rectangle as it stands restored: a minimised or maximised window gives its
  // normal position, so that the next start opens it where the user left it.
  virtual Rect restoredRect() const = 0;
  virtual bool setTopmost(bool topmost) = 0;

  // Main thread queue. post() and postTask() may be called from any thread.
  virtual bool post(std::uint32_t message) = 0;
  // Runs a task on the window's thread, in turn with the posted messages: controls belong to
  // that thread, so other threads hand their control work over this way. False for an empty task.
  virtual bool postTask(std::function<void()> task) = 0;
  virtual void postQuit(int exitCode) = 0;
  virtual WindowMessage waitMessage() = 0;
};

// The backend the logic talks to. Until one is installed, a headless backend serves.
WindowLayer& gf_window();
// Installs a backend (not owned); nullptr goes back to the built-in headless one.
void gf_setWindow(WindowLayer* layer);

}  // namespace orv
