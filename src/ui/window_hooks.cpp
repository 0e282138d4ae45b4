#include "ui/window_hooks.h"

#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "liveries/category_reports.h"
#include "parking/parking_hooks.h"
#include "simlink/simulator_switch.h"
#include "ui/controls.h"

namespace orv {

namespace {
// The two enums list the same bands in the same order, so that a band maps by its number.
template <ShownBand S, Band W>
constexpr bool kSameBand = static_cast<int>(S) == static_cast<int>(W);
static_assert(kSameBand<ShownBand::Title, Band::Title> && kSameBand<ShownBand::Status, Band::Status> &&
              kSameBand<ShownBand::Controls, Band::Controls> && kSameBand<ShownBand::ParkAirport, Band::ParkAirport> &&
              kSameBand<ShownBand::Message, Band::Message>);

Band windowBand(ShownBand band) { return static_cast<Band>(band); }

void repaint(ShownBand band) { gf_window().invalidate(windowBand(band)); }
void paintMessage() { gf_window().post(WM_PAINT_MESSAGE); }

void showSimulatorSwitch() {
  // The values were set by the switch before it posted this; the controls follow them.
  gf_window().setChecked(SCAN_AIRPORTS.controlId, SCAN_AIRPORTS.value);
  gf_window().setChecked(SCAN_LIVERIES.controlId, SCAN_LIVERIES.value);
  lf_setControlText(ALL_INSTALL_PATH.controlId, ALL_INSTALL_PATH.value);
  lf_fillCombo(SIM_CHOICE);
}

// A traffic class without liveries may have been switched off: the box follows its value.
void showClassBox(const CheckboxParameter& box, bool enabled) {
  gf_window().setChecked(box.controlId, box.value);
  lf_enableControl(box.controlId, enabled);
}

void enterParkingWait(bool atStart) {
  lf_blockParkingControls();
  if (!atStart) setMessage("Calculating static parked aircraft ...");
}
}  // namespace

void lf_connectWindowHooks() {
  gf_repaint.set(repaint);
  gf_paintMessageArea.set(paintMessage);
  gf_showParameterValues.set(lf_showParameterValues);
  lf_showSimulatorSwitch.set([] { gf_window().postTask(showSimulatorSwitch); });
  lf_showClassBox.set([](const CheckboxParameter* box, bool enabled) {
    gf_window().postTask([box, enabled] { showClassBox(*box, enabled); });
  });
  gv_enterParkingWait.set(enterParkingWait);
  gv_endParkingWait.set(lf_unblockParkingControls);
  gv_enableReread.set([] { lf_enableControl(BUTTON_REREAD.controlId, true); });
}

}  // namespace orv
