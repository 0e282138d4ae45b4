#include "foundation/shown_value.h"

namespace orv {

namespace {
// Constant-initialised: values may change before the program has set the hook.
constinit std::atomic<RepaintHook> gRepaintHook{nullptr};
}  // namespace

void gf_setRepaintHook(RepaintHook hook) { gRepaintHook.store(hook); }

void gf_repaint(ShownBand band) {
  if (RepaintHook hook = gRepaintHook.load()) hook(band);
}

}  // namespace orv
