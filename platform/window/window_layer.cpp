#include "platform/window/window_layer.h"

#include <atomic>

#include "platform/window/headless_window.h"

namespace orv {

Rect bandRect(Band band) {
  switch (band) {
    case Band::Title: return {0, 0, kWindowWidth, 28};
    case Band::Status: return {0, 28, kWindowWidth, 112};
    case Band::Controls: return {0, 112, kWindowWidth, 392};
    case Band::ParkAirport: return {0, 392, kWindowWidth, 448};
    case Band::Message: return {0, 448, kWindowWidth, 476};
  }
  return {};
}

namespace {
std::atomic<WindowLayer*> gInstalled{nullptr};

WindowLayer& builtIn() {
  static HeadlessWindow window;
  return window;
}
}  // namespace

WindowLayer& gf_window() {
  WindowLayer* layer = gInstalled.load();
  return layer ? *layer : builtIn();
}

void gf_setWindow(WindowLayer* layer) { gInstalled.store(layer); }

}  // namespace orv
