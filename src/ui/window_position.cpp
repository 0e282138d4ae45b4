#include "ui/window_position.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "foundation/generations.h"
#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/xml_file.h"
#include "foundation/user_paths.h"
#include "platform/window/window_layer.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

void readInt(pugi::xml_node parameters, ValueParameter<std::int32_t>& p) {
  const pugi::xml_node found = parameters.find_child_by_attribute("parameter", "name", p.name.c_str());
  p.set(found ? found.attribute("value").as_int(0) : p.defaultValue);
}

bool atLimit(const ValueParameter<std::int32_t>& p) { return p.value <= p.minValue || p.value >= p.maxValue; }

}  // namespace

void lf_readWindowPosition() {
  const fs::path file = gf_parametersPath();
  std::error_code ec;
  if (!fs::exists(file, ec)) return;

  pugi::xml_document doc;
  const pugi::xml_parse_result loaded = gf_loadXmlFile(doc, file);
  if (!loaded) {
    // Kept for a support question; the parameter store then writes a fresh file.
    gf_logError("{} failed to load ({}). Saved as 0.xml and removed.", file.string(), loaded.description());
    gf_save1GenerationOf(file);
    fs::remove(file, ec);
    if (ec) gf_logError("removing {} failed: {}", file.string(), ec.message());
    return;
  }

  const pugi::xml_node parameters = gf_parametersNode(doc);
  readInt(parameters, MAIN_WINDOW_X);
  readInt(parameters, MAIN_WINDOW_Y);
  lf_keepOnScreen(MAIN_WINDOW_X.defaultValue, MAIN_WINDOW_Y.defaultValue);
}

void lf_saveWindowPosition() {
  const int oldX = MAIN_WINDOW_X.value;
  const int oldY = MAIN_WINDOW_Y.value;
  const Rect r = gf_window().restoredRect();
  MAIN_WINDOW_X.set(r.left);
  MAIN_WINDOW_Y.set(r.top);
  saveInt(MAIN_WINDOW_X);
  saveInt(MAIN_WINDOW_Y);
  lf_keepOnScreen(oldX, oldY);
}

void lf_keepOnScreen(int fallbackX, int fallbackY, int width, int height) {
  if (atLimit(MAIN_WINDOW_X)) {
    MAIN_WINDOW_X.set(fallbackX);
    saveInt(MAIN_WINDOW_X);
  }
  if (atLimit(MAIN_WINDOW_Y)) {
    MAIN_WINDOW_Y.set(fallbackY);
    saveInt(MAIN_WINDOW_Y);
  }
  const int oldX = MAIN_WINDOW_X.value;
  const int oldY = MAIN_WINDOW_Y.value;

  Rect r{oldX, oldY, oldX + width, oldY + height};
  const Rect work = gf_window().nearestWorkArea(r);
  const int workWidth = work.right - work.left;
  const int workHeight = work.bottom - work.top;
  if (r.right - r.left > workWidth) {
    r.left = work.left;
    r.right = r.left + workWidth;
  }
  if (r.bottom - r.top > workHeight) {
    r.top = work.top;
    r.bottom = r.top + workHeight;
  }
  if (r.right < work.left + kVisibleMargin) {
    const int shift = work.left + kVisibleMargin - r.right;
    r.left += shift;
    r.right += shift;
  }
  const int x = std::min(r.left, work.right - kVisibleMargin);
  if (r.bottom < work.top + kVisibleMargin) {
    const int shift = work.top + kVisibleMargin - r.bottom;
    r.top += shift;
    r.bottom += shift;
  }
  const int y = std::min(r.top, work.bottom - kVisibleMargin);
  if (x == oldX && y == oldY) return;

  MAIN_WINDOW_X.set(x);
  MAIN_WINDOW_Y.set(y);
  saveInt(MAIN_WINDOW_X);
  saveInt(MAIN_WINDOW_Y);
  gf_window().moveWindow(MAIN_WINDOW_X.value, MAIN_WINDOW_Y.value);
}

}  // namespace orv
