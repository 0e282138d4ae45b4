#pragma once
// The controls of the main window: where each stands, the labels painted beside it, how all
// of them are created, and the state each takes at the start of a run.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/parameter.h"
#include "platform/window/window_layer.h"

namespace orv {

// When a label leaves its normal black.
enum class LabelRule {
  Plain,
  YellowWhenSet,         // the row's check box is set
  YellowWhenOff,         // the row's check box is off
  GreyWhenOff,           // the row's check box is off
  GreyWhenAutoRangeOff,  // AUTO_RANGE is off
  GreyWhenDisabled,      // the row's control is disabled
  StaticUpdate,          // yellow while a static update runs
  MaxPark,               // red when both maxima are 0, yellow when MAX_PARK_SEL is 0
  MaxLive,               // red when both maxima are 0, yellow when MAX_LIVE_SEL is 0
};

struct ControlLabel {
  std::string_view text;
  int x = 0;
  LabelRule rule = LabelRule::Plain;
};

// One control. Its id and row y are those of its parameter or button; a label stands at
// the row y.
struct ControlRow {
  Control* control = nullptr;
  ControlKind kind = ControlKind::Check;
  int x = 0;
  int width = 0;       // check boxes are always 12
  int listHeight = 0;  // combo boxes only: the height of the dropped list
  std::vector<ControlLabel> labels;

  std::uint16_t id() const { return control->controlId; }
  int y() const { return control->y; }
};

// Every control in the order of creation.
const std::vector<ControlRow>& lf_controlLayout();
// Nullptr for an id that is not in the layout.
const ControlRow* lf_findControlRow(std::uint16_t id);

// Creates all controls through the window layer in layout order: check boxes at y + 2,
// 12 x 12, ticked from their parameter, enabled; buttons 20 high, edit boxes 16 high, both
// disabled; combo boxes at y - 5, as high as their list, filled by lf_resetControls.
void lf_createControls();

// The state of every control at the start of a run. Also sets gv_isMsfs2020 and
// gv_simGeneration from SIM_CHOICE, parking_percentage back to 30, and MAX_FIT_FL from MAX_FIT.
void lf_resetControls();

// The controls show the parameter values as they stand: check boxes ticked, combo and edit
// boxes given their text. Foundation asks for it through its display hook after a read.
void lf_showParameterValues();

// A static update runs: the controls that steer parking are blocked until it ends.
void lf_blockParkingControls();
void lf_unblockParkingControls();

// Enabled state of a control. Every change goes through here, because labels are painted
// grey after the state of their control, which the window layer cannot be asked for.
void lf_enableControl(std::uint16_t id, bool enabled);
bool lf_controlEnabled(std::uint16_t id);

// The text of a control; a missing control is logged and gives "".
std::string lf_getTextFromId(std::uint16_t id);
// Sets the text of a control and invalidates the controls band.
void lf_setControlText(std::uint16_t id, std::string_view text);

// Refills a combo box from its choices and selects the present value, shown as text; a value
// that is not among the choices leaves nothing selected.
void lf_fillCombo(const ComboParameter& combo);
void lf_fillCombo(const FloatComboParameter& combo);
void lf_fillCombo(const StringComboParameter& combo);
// The text a float combo shows for a value.
std::string lf_floatComboText(float value);

}  // namespace orv
