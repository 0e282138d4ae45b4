#include "ui/controls.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <map>
#include <mutex>

#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/sim_choice.h"
#include "foundation/status_values.h"
#include "parking/parking_run_state.h"

namespace orv {

namespace {

constexpr int kCheckSize = 12;
constexpr int kCheckOffset = 2;
constexpr int kButtonHeight = 20;
constexpr int kEditHeight = 16;
constexpr int kComboOffset = 5;

ControlRow check(CheckboxParameter& p, int x, std::vector<ControlLabel> labels) {
  return {&p, ControlKind::Check, x, kCheckSize, 0, std::move(labels)};
}
ControlRow button(ButtonControl& b, int x, int width) { return {&b, ControlKind::Button, x, width, 0, {}}; }
ControlRow edit(EditParameter& p, int x, int width, std::vector<ControlLabel> labels = {}) {
  return {&p, ControlKind::Edit, x, width, 0, std::move(labels)};
}
ControlRow combo(Control& p, int x, int width, int listHeight, std::vector<ControlLabel> labels = {}) {
  return {&p, ControlKind::Combo, x, width, listHeight, std::move(labels)};
}

std::vector<ControlRow> buildLayout() {
  using R = LabelRule;
  return {
      combo(SIM_CHOICE, 5, 105, 80),
      edit(ALL_INSTALL_PATH, 111, 1200),
      check(SCAN_LIVERIES, 5, {{"Scan for liveries", 25, R::YellowWhenSet}}),
      check(LIG_AUTOMATIC, 217, {{"Automatic:", 237}}),
      combo(AI_PACKAGE_SELECTOR, 323, 175, 300),
      check(LIG_PRIORITIZE, 536, {{"Prioritize", 556}}),
      check(ALWAYS_ON_TOP, 748, {{"Meta:", 652}, {"Stay on top", 768}}),
      check(SCAN_AIRPORTS, 5, {{"Scan for addon airports", 25, R::YellowWhenSet}}),
      button(BUTTON_TBLO, 217, 80),
      check(OBJECTID_LIST, 652, {{"Oid list", 672}}),
      check(NAV_LIGHTS_WHILE_PARKED, 748, {{"Nav lights", 768}}),
      combo(MATCHING_DEPTH, 217, 40, 120, {{"Max aircraft matching depth", 5}, {"Optional:", 258}}),
      check(LIGHT_AIRCRAFT, 323, {{"Light aircraft", 343, R::GreyWhenDisabled}}),
      check(HELICOPTERS, 430, {{"Helicopters", 450, R::GreyWhenDisabled}}),
      check(HIGH_PERF_AIRCRAFT, 536, {{"FighterJets", 556, R::GreyWhenDisabled}}),
      check(AEROWINX, 652, {{"Aerowinx", 672, R::YellowWhenSet}}),
      check(GUID_CHANGES, 748, {{"GUID changes", 768, R::YellowWhenOff}}),
      combo(RANGE, 217, 50, 200, {{"Traffic injection", 5}, {"Radius:", 163}, {"nm, or", 270}}),
      check(AUTO_RANGE, 323, {{"Auto radius", 343}}),
      combo(AR_ABOVE_HEIGHT, 455, 70, 230, {{"Ah:", 430, R::GreyWhenAutoRangeOff}, {"ft", 536, R::GreyWhenAutoRangeOff}}),
      check(AIRBORNE_ONLY, 572, {{"AirOnly", 592, R::YellowWhenSet}}),
      edit(BLOCK_CALLSIGN, 107, 100, {{"Block callsign:", 5}}),
      button(BUTTON_UNBLOCK, 223, 60),
      button(BUTTON_CS2OID, 305, 60),
      // Its object id text at x = 476 is drawn from the window state.
      combo(CALLSIGN_2_OBJECTID, 375, 100, 300),
      button(BUTTON_BLOCK, 576, 60),
      check(COLLISION_USER_GND, 217, {{"Collision avoidance", 5}, {"User ground", 237}}),
      check(COLLISION_USER_AIR, 323, {{"User air", 343}}),
      check(COLLISION_LIVE_PARKED_GND, 430, {{"Live X parked", 450}}),
      button(BUTTON_NOW, 111, 45),
      combo(MAX_PARK_SEL, 323, 55, 144, {{"Airport parking", 5, R::StaticUpdate}, {"Max park (static+live):", 171, R::MaxPark}}),
      combo(MAX_LIVE_SEL, 536, 55, 144, {{"Max live (park incl):", 401, R::MaxLive}}),
      check(STRAIGHT_PBS_ONLY, 652, {{"Straight push backs only", 672, R::GreyWhenOff}}),
      edit(DESTINATION, 217, 50, {{"Destination:", 137}}),
      combo(AIRP_RANGE, 353, 45, 144, {{"Range:", 303}, {"nm", 403}}),
      combo(AIRP_HEIGHT, 566, 70, 230, {{"Height above gnd:", 440}, {"ft", 646}}),
      check(INITIAL_LOAD_ONLY, 5, {{"ILO", 25, R::YellowWhenSet}}),
      check(WEEK, 71, {{"Week", 91}}),
      check(PARK_SOFT, 151, {{"Soft", 171}}),
      combo(parking_percentage, 323, 50, 200, {{"Target: ", 264}, {"%", 378}}),
      combo(MAX_FIT_FL, 566, 60, 300, {{"Max fit:", 506}, {"hrs", 632}}),
      button(BUTTON_REREAD, 758, 90),
      button(BUTTON_FLUSH_STATIC, 758, 90),
  };
}

// Mirror of the enabled state, written from the run thread as well as the window thread.
std::mutex gEnabledMutex;
std::map<std::uint16_t, bool> gEnabled;

void recordEnabled(std::uint16_t id, bool enabled) {
  std::lock_guard lock(gEnabledMutex);
  gEnabled[id] = enabled;
}

void selectText(std::uint16_t id, const std::vector<std::string>& entries, std::string_view text) {
  WindowLayer& w = gf_window();
  w.fillCombo(id, entries);
  const auto it = std::find(entries.begin(), entries.end(), text);
  if (it != entries.end()) w.selectComboEntry(id, static_cast<int>(it - entries.begin()));
}

void setEnabled(std::initializer_list<const Control*> controls, bool enabled) {
  for (const Control* c : controls) lf_enableControl(c->controlId, enabled);
}

// The controls that steer parking, blocked while a static update runs.
void setParkingControls(bool enabled) {
  setEnabled({&parking_percentage, &WEEK, &PARK_SOFT, &MAX_FIT_FL, &MAX_PARK_SEL, &MAX_LIVE_SEL, &BUTTON_FLUSH_STATIC,
              &BUTTON_REREAD},
             enabled);
  // With ILO on there is no next update to bring forward, so Now stays as it is.
  if (!INITIAL_LOAD_ONLY.value) setEnabled({&BUTTON_NOW}, enabled);
}

}  // namespace

const std::vector<ControlRow>& lf_controlLayout() {
  static const std::vector<ControlRow> layout = buildLayout();
  return layout;
}

const ControlRow* lf_findControlRow(std::uint16_t id) {
  for (const ControlRow& row : lf_controlLayout())
    if (row.id() == id) return &row;
  return nullptr;
}

void lf_createControls() {
  WindowLayer& w = gf_window();
  for (const ControlRow& row : lf_controlLayout()) {
    ControlSpec made;
    made.id = row.id();
    made.kind = row.kind;
    made.x = row.x;
    made.width = row.width;
    switch (row.kind) {
      case ControlKind::Check:
        made.y = row.y() + kCheckOffset;
        made.width = kCheckSize;
        made.height = kCheckSize;
        made.enabled = true;
        break;
      case ControlKind::Button:
        made.y = row.y();
        made.height = kButtonHeight;
        made.enabled = false;
        break;
      case ControlKind::Edit:
        made.y = row.y();
        made.height = kEditHeight;
        made.enabled = false;
        break;
      case ControlKind::Combo:
        made.y = row.y() - kComboOffset;
        made.height = row.listHeight;
        made.enabled = true;
        break;
    }
    if (!w.createControl(made)) gf_logError("creating control {} failed", made.id);
    recordEnabled(made.id, made.enabled);
    if (row.kind == ControlKind::Check) w.setChecked(made.id, static_cast<CheckboxParameter*>(row.control)->value);
    if (row.kind == ControlKind::Button) w.setText(made.id, static_cast<ButtonControl*>(row.control)->name);
  }
}

void lf_enableControl(std::uint16_t id, bool enabled) {
  recordEnabled(id, enabled);
  gf_window().setEnabled(id, enabled);
}

bool lf_controlEnabled(std::uint16_t id) {
  std::lock_guard lock(gEnabledMutex);
  const auto it = gEnabled.find(id);
  return it != gEnabled.end() && it->second;
}

std::string lf_floatComboText(float value) { return fmt::format("{:.1f}", value); }

void lf_fillCombo(const ComboParameter& combo) {
  std::vector<std::string> entries;
  entries.reserve(combo.choices.size());
  for (std::int32_t c : combo.choices) entries.push_back(std::to_string(c));
  selectText(combo.controlId, entries, std::to_string(combo.value));
}

void lf_fillCombo(const FloatComboParameter& combo) {
  std::vector<std::string> entries;
  entries.reserve(combo.choices.size());
  for (float c : combo.choices) entries.push_back(lf_floatComboText(c));
  selectText(combo.controlId, entries, lf_floatComboText(combo.value));
}

void lf_fillCombo(const StringComboParameter& combo) { selectText(combo.controlId, combo.choices, combo.value); }

void lf_resetControls() {
  setEnabled({&ALWAYS_ON_TOP, &NAV_LIGHTS_WHILE_PARKED, &OBJECTID_LIST, &GUID_CHANGES, &SCAN_LIVERIES, &LIG_AUTOMATIC,
              &LIG_PRIORITIZE},
             true);
  // Scanning airports needs the user's position, so it waits until the user aircraft is known.
  setEnabled({&SCAN_AIRPORTS, &BUTTON_TBLO}, false);

  lf_fillCombo(MATCHING_DEPTH);
  setEnabled({&MATCHING_DEPTH, &LIGHT_AIRCRAFT, &HELICOPTERS, &HIGH_PERF_AIRCRAFT, &AUTO_RANGE, &AIRBORNE_ONLY,
              &COLLISION_USER_GND, &COLLISION_USER_AIR, &COLLISION_LIVE_PARKED_GND},
             true);

  // The radius is either chosen or follows altitude, never both.
  lf_fillCombo(RANGE);
  setEnabled({&RANGE}, !AUTO_RANGE.value);
  lf_fillCombo(AR_ABOVE_HEIGHT);
  setEnabled({&AR_ABOVE_HEIGHT}, AUTO_RANGE.value);

  setEnabled({&BUTTON_BLOCK}, false);
  setEnabled({&BLOCK_CALLSIGN}, true);
  setEnabled({&BUTTON_UNBLOCK}, !BLOCK_CALLSIGN.value.empty());
  if (!INITIAL_LOAD_ONLY.value) setEnabled({&BUTTON_NOW}, false);

  for (const ComboParameter* c : {&MAX_PARK_SEL, &MAX_LIVE_SEL, &AIRP_RANGE, &AIRP_HEIGHT}) lf_fillCombo(*c);
  setEnabled({&MAX_PARK_SEL, &MAX_LIVE_SEL, &STRAIGHT_PBS_ONLY, &AIRP_RANGE, &AIRP_HEIGHT}, true);

  lf_fillCombo(CALLSIGN_2_OBJECTID);
  setEnabled({&BUTTON_CS2OID, &CALLSIGN_2_OBJECTID}, false);

  lf_fillCombo(AI_PACKAGE_SELECTOR);
  setEnabled({&AI_PACKAGE_SELECTOR}, LIG_AUTOMATIC.value);

  lf_fillCombo(SIM_CHOICE);
  setEnabled({&SIM_CHOICE}, true);
  gv_isMsfs2020 = SIM_CHOICE.value == "MSFS 2020";
  gv_simGeneration = gv_isMsfs2020 ? 1 : 2;

  // These are enabled later in the run, once what they steer exists.
  parking_percentage.set(30);
  lf_fillCombo(parking_percentage);
  gf_maxFitFromStored();
  lf_fillCombo(MAX_FIT_FL);
  setEnabled({&DESTINATION, &BUTTON_REREAD, &parking_percentage, &MAX_FIT_FL, &BUTTON_FLUSH_STATIC}, false);

  setEnabled({&WEEK, &PARK_SOFT, &INITIAL_LOAD_ONLY}, true);

  // Labels follow values and enabled states.
  gf_window().invalidate(Band::Controls);
}

void lf_showParameterValues() {
  WindowLayer& w = gf_window();
  for (auto* p : gf_checkboxList()) w.setChecked(p->controlId, p->value);
  for (auto* p : gf_comboList()) w.setText(p->controlId, std::to_string(p->value));
  for (auto* p : gf_editList()) w.setText(p->controlId, p->value);
}

void lf_blockParkingControls() {
  gv_staticUpdateRunning.store(true);
  setParkingControls(false);
  gf_window().invalidate(Band::Controls);
}

void lf_unblockParkingControls() {
  gv_staticUpdateRunning.store(false);
  gParkingStatus.minutesToUpdate.store(20);
  setParkingControls(true);
  gf_window().invalidate(Band::Controls);
}

std::string lf_getTextFromId(std::uint16_t id) {
  std::optional<std::string> text = gf_window().text(id);
  if (!text) {
    gf_log("GetDlgItem failed for ID {}", id);
    return {};
  }
  return std::move(*text);
}

void lf_setControlText(std::uint16_t id, std::string_view text) {
  if (!gf_window().setText(id, text)) {
    gf_log("GetDlgItem failed for ID {}", id);
    return;
  }
  gf_window().invalidate(Band::Controls);
}

}  // namespace orv
