#include "platform/window/headless_window.h"

#include <algorithm>
#include <climits>

namespace orv {

bool HeadlessWindow::createControl(const ControlSpec& placement) {
  std::lock_guard lock(mutex_);
  HeadlessControl c;
  c.placement = placement;
  c.enabled = placement.enabled;
  return controls_.insert_or_assign(placement.id, std::move(c)).second;
}

bool HeadlessWindow::setEnabled(std::uint16_t id, bool enabled) {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end()) return false;
  it->second.enabled = enabled;
  return true;
}

bool HeadlessWindow::setText(std::uint16_t id, std::string_view utf8) {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end()) return false;
  it->second.text = std::string(utf8);
  return true;
}

std::optional<std::string> HeadlessWindow::text(std::uint16_t id) const {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end()) return std::nullopt;
  return it->second.text;
}

bool HeadlessWindow::setChecked(std::uint16_t id, bool checked) {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end() || it->second.placement.kind != ControlKind::Check) return false;
  it->second.checked = checked;
  return true;
}

bool HeadlessWindow::fillCombo(std::uint16_t id, const std::vector<std::string>& entries) {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end() || it->second.placement.kind != ControlKind::Combo) return false;
  it->second.entries = entries;
  it->second.selected = -1;
  it->second.text.clear();
  return true;
}

bool HeadlessWindow::selectComboEntry(std::uint16_t id, int index) {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end() || it->second.placement.kind != ControlKind::Combo) return false;
  auto& c = it->second;
  if (index < 0 || index >= static_cast<int>(c.entries.size())) return false;
  c.selected = index;
  c.text = c.entries[static_cast<std::size_t>(index)];
  return true;
}

void HeadlessWindow::invalidate(Band band) {
  std::lock_guard lock(mutex_);
  ++invalidations_[static_cast<std::size_t>(band)];
}

Rect HeadlessWindow::nearestWorkArea(const Rect& window) const {
  std::lock_guard lock(mutex_);
  // Nearest by the distance between the rectangle's centre and each work area.
  const long cx = (long{window.left} + window.right) / 2;
  const long cy = (long{window.top} + window.bottom) / 2;
  const Rect* best = &monitors_.front();
  long bestDistance = LONG_MAX;
  for (const Rect& m : monitors_) {
    const long dx = cx < m.left ? m.left - cx : (cx > m.right ? cx - m.right : 0);
    const long dy = cy < m.top ? m.top - cy : (cy > m.bottom ? cy - m.bottom : 0);
    const long d = dx * dx + dy * dy;
    if (d < bestDistance) {
      bestDistance = d;
      best = &m;
    }
  }
  return *best;
}

bool HeadlessWindow::moveWindow(int x, int y) {
  std::lock_guard lock(mutex_);
  window_ = {x, y, x + kWindowWidth, y + kWindowHeight};
  return true;
}

bool HeadlessWindow::setTopmost(bool topmost) {
  std::lock_guard lock(mutex_);
  topmost_ = topmost;
  return true;
}

// Every post notifies under the lock: the thread that takes the message may destroy the window
// right after, and must not do so while a poster still touches the condition variable.
bool HeadlessWindow::post(std::uint32_t message) {
  std::lock_guard lock(mutex_);
  queue_.push_back({{message, false, 0}, {}});
  queued_.notify_one();
  return true;
}

bool HeadlessWindow::postTask(std::function<void()> task) {
  if (!task) return false;
  std::lock_guard lock(mutex_);
  queue_.push_back({{}, std::move(task)});
  queued_.notify_one();
  return true;
}

void HeadlessWindow::postQuit(int exitCode) {
  std::lock_guard lock(mutex_);
  queue_.push_back({{0, true, exitCode}, {}});
  queued_.notify_one();
}

WindowMessage HeadlessWindow::waitMessage() {
  std::unique_lock lock(mutex_);
  for (;;) {
    queued_.wait(lock, [this] { return !queue_.empty(); });
    Entry e = std::move(queue_.front());
    queue_.pop_front();
    if (!e.task) return e.message;
    // Unlocked, so that the task may use the window and post again.
    lock.unlock();
    e.task();
    lock.lock();
  }
}

std::optional<HeadlessControl> HeadlessWindow::control(std::uint16_t id) const {
  std::lock_guard lock(mutex_);
  auto it = controls_.find(id);
  if (it == controls_.end()) return std::nullopt;
  return it->second;
}

unsigned HeadlessWindow::invalidations(Band band) const {
  std::lock_guard lock(mutex_);
  return invalidations_[static_cast<std::size_t>(band)];
}

void HeadlessWindow::setWorkAreas(std::vector<Rect> monitors) {
  std::lock_guard lock(mutex_);
  if (!monitors.empty()) monitors_ = std::move(monitors);
}

// Without a display the window is never minimised or maximised.
Rect HeadlessWindow::restoredRect() const { return windowRect(); }

Rect HeadlessWindow::windowRect() const {
  std::lock_guard lock(mutex_);
  return window_;
}

bool HeadlessWindow::topmost() const {
  std::lock_guard lock(mutex_);
  return topmost_;
}

std::size_t HeadlessWindow::pending() const {
  std::lock_guard lock(mutex_);
  return static_cast<std::size_t>(std::count_if(queue_.begin(), queue_.end(), [](const Entry& e) { return !e.task; }));
}

}  // namespace orv
