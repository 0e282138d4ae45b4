#pragma once
// A window backend without a display: controls and state live in memory,
// invalidations are counted, and the main thread's queue is served from a deque.
#include <array>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

#include "platform/window/window_layer.h"

namespace orv {

struct HeadlessControl {
  ControlSpec placement;
  bool enabled = true;
  bool checked = false;
  std::string text;
  std::vector<std::string> entries;
  int selected = -1;
};

class HeadlessWindow final : public WindowLayer {
 public:
  bool createControl(const ControlSpec& placement) override;
  bool setEnabled(std::uint16_t id, bool enabled) override;
  bool setText(std::uint16_t id, std::string_view utf8) override;
  std::optional<std::string> text(std::uint16_t id) const override;
  bool setChecked(std::uint16_t id, bool checked) override;
  bool fillCombo(std::uint16_t id, const std::vector<std::string>& entries) override;
  bool selectComboEntry(std::uint16_t id, int index) override;
  void invalidate(Band band) override;

  Rect nearestWorkArea(const Rect& window) const override;
  bool moveWindow(int x, int y) override;
  Rect restoredRect() const override;
  bool setTopmost(bool topmost) override;

  bool post(std::uint32_t message) override;
  // The task runs inside waitMessage(), on the thread that serves the queue.
  bool postTask(std::function<void()> task) override;
  void postQuit(int exitCode) override;
  WindowMessage waitMessage() override;

  // Inspection, for tests and for the headless run's report.
  std::optional<HeadlessControl> control(std::uint16_t id) const;
  unsigned invalidations(Band band) const;
  void setWorkAreas(std::vector<Rect> monitors);
  Rect windowRect() const;
  bool topmost() const;
  // Messages posted and not yet taken; tasks do not count, waitMessage() runs them on its way.
  std::size_t pending() const;

 private:
  mutable std::mutex mutex_;
  std::condition_variable queued_;
  std::map<std::uint16_t, HeadlessControl> controls_;
  std::array<unsigned, 5> invalidations_{};
  std::vector<Rect> monitors_{Rect{0, 0, 1920, 1040}};
  Rect window_{0, 0, kWindowWidth, kWindowHeight};
  bool topmost_ = false;
  // A message, or a task when `task` is set.
  struct Entry {
    WindowMessage message;
    std::function<void()> task;
  };
  std::deque<Entry> queue_;
};

}  // namespace orv
