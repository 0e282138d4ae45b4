#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <set>
#include <string>

#include "foundation/parameters.h"
#include "foundation/sim_choice.h"
#include "ui/controls.h"
#include "ui_fixture.h"

namespace orv {
namespace {

class ControlsTest : public test::UiTest {
 protected:
  HeadlessControl get(const Control& c) const { return window.control(c.controlId).value_or(HeadlessControl{}); }
  // Checks the window and the mirror that the painter reads at once.
  void expectEnabled(std::initializer_list<const Control*> controls, bool enabled) const {
    for (const Control* c : controls) {
      EXPECT_EQ(get(*c).enabled, enabled) << c->controlId;
      EXPECT_EQ(lf_controlEnabled(c->controlId), enabled) << c->controlId;
    }
  }
  void expectGeometry(const Control& c, ControlKind kind, int x, int y, int width, int height) const {
    const ControlSpec s = get(c).placement;
    EXPECT_EQ(s.kind, kind) << c.controlId;
    EXPECT_EQ((std::array{s.x, s.y, s.width, s.height}), (std::array{x, y, width, height})) << c.controlId;
  }
};

TEST_F(ControlsTest, EveryControlIsCreatedWithTheGeometryOfItsKind) {
  AEROWINX.set(true);
  lf_createControls();

  std::set<std::uint16_t> ids;
  for (const ControlRow& row : lf_controlLayout()) {
    ids.insert(row.id());
    EXPECT_TRUE(window.control(row.id())) << row.id();
    // A check box's own label is the one its parameter names.
    bool labelled = row.kind != ControlKind::Check;
    for (const ControlLabel& l : row.labels) labelled |= l.text == row.control->label;
    EXPECT_TRUE(labelled) << row.control->label;
  }
  EXPECT_EQ(ids.size(), lf_controlLayout().size()) << "no id twice";

  expectGeometry(SCAN_LIVERIES, ControlKind::Check, 5, 149, 12, 12);
  expectGeometry(BUTTON_TBLO, ControlKind::Button, 217, 175, 80, 20);
  expectGeometry(BLOCK_CALLSIGN, ControlKind::Edit, 107, 259, 100, 16);
  expectGeometry(MAX_FIT_FL, ControlKind::Combo, 566, 366, 60, 300);
  expectEnabled({&SCAN_LIVERIES, &MAX_FIT_FL}, true);
  expectEnabled({&BUTTON_TBLO, &BLOCK_CALLSIGN}, false);
  EXPECT_TRUE(get(AEROWINX).checked);
  EXPECT_FALSE(get(OBJECTID_LIST).checked);
  EXPECT_EQ(get(BUTTON_TBLO).text, "tblo.zip");
}

TEST_F(ControlsTest, ResetSetsEachControlAsTheRunStarts) {
  lf_createControls();
  AUTO_RANGE.set(true);
  LIG_AUTOMATIC.set(false);
  BLOCK_CALLSIGN.set("DLH4AB");
  RANGE.set(25);
  SIM_CHOICE.set("MSFS 2024");
  parking_percentage.set(55);
  MAX_FIT.set(11);
  for (const Control* c : {static_cast<const Control*>(&BUTTON_NOW), static_cast<const Control*>(&DESTINATION)})
    lf_enableControl(c->controlId, true);

  lf_resetControls();

  expectEnabled({&ALWAYS_ON_TOP, &NAV_LIGHTS_WHILE_PARKED, &OBJECTID_LIST, &GUID_CHANGES, &SCAN_LIVERIES,
                 &LIG_AUTOMATIC, &LIG_PRIORITIZE, &MATCHING_DEPTH, &LIGHT_AIRCRAFT, &HELICOPTERS, &HIGH_PERF_AIRCRAFT,
                 &AUTO_RANGE, &AIRBORNE_ONLY, &COLLISION_USER_GND, &COLLISION_USER_AIR, &COLLISION_LIVE_PARKED_GND,
                 &BLOCK_CALLSIGN, &MAX_PARK_SEL, &MAX_LIVE_SEL, &STRAIGHT_PBS_ONLY, &AIRP_RANGE, &AIRP_HEIGHT,
                 &SIM_CHOICE, &WEEK, &PARK_SOFT, &INITIAL_LOAD_ONLY, &AR_ABOVE_HEIGHT, &BUTTON_UNBLOCK},
                true);
  expectEnabled({&SCAN_AIRPORTS, &BUTTON_TBLO, &BUTTON_BLOCK, &BUTTON_CS2OID, &CALLSIGN_2_OBJECTID, &DESTINATION,
                 &BUTTON_REREAD, &parking_percentage, &MAX_FIT_FL, &BUTTON_FLUSH_STATIC, &RANGE,
                 &AI_PACKAGE_SELECTOR, &BUTTON_NOW},
                false);
  EXPECT_FALSE(gv_isMsfs2020);
  EXPECT_EQ(gv_simGeneration, 2);
  EXPECT_EQ(get(SIM_CHOICE).text, "MSFS 2024");
  EXPECT_EQ(get(RANGE).text, "25");
  EXPECT_EQ(get(AI_PACKAGE_SELECTOR).entries.size(), AI_PACKAGE_SELECTOR.choices.size());
  EXPECT_EQ(parking_percentage.value, 30);
  EXPECT_EQ(get(parking_percentage).text, "30");
  EXPECT_EQ(get(MAX_FIT_FL).text, "6.0");
  EXPECT_EQ(get(MAX_FIT_FL).entries.front(), "0.5");

  // The other way round for every control that depends on a value.
  AUTO_RANGE.set(false);
  LIG_AUTOMATIC.set(true);
  BLOCK_CALLSIGN.set("");
  INITIAL_LOAD_ONLY.set(true);
  SIM_CHOICE.set("MSFS 2020");
  lf_enableControl(BUTTON_NOW.controlId, true);

  lf_resetControls();

  expectEnabled({&RANGE, &AI_PACKAGE_SELECTOR, &BUTTON_NOW}, true);  // Now is left as it was with ILO on
  expectEnabled({&AR_ABOVE_HEIGHT, &BUTTON_UNBLOCK}, false);
  EXPECT_TRUE(gv_isMsfs2020);
  EXPECT_EQ(gv_simGeneration, 1);
}

TEST_F(ControlsTest, AStaticUpdateBlocksTheParkingControlsUntilItEnds) {
  lf_createControls();
  lf_resetControls();
  const unsigned before = window.invalidations(Band::Controls);
  const std::initializer_list<const Control*> parking{&parking_percentage,  &WEEK,          &PARK_SOFT,
                                                      &MAX_FIT_FL,          &MAX_PARK_SEL,  &MAX_LIVE_SEL,
                                                      &BUTTON_FLUSH_STATIC, &BUTTON_REREAD, &BUTTON_NOW};
  gParkingStatus.minutesToUpdate.store(3);
  lf_unblockParkingControls();
  EXPECT_FALSE(gv_staticUpdateRunning);
  EXPECT_EQ(gParkingStatus.minutesToUpdate.load(), 20);
  expectEnabled(parking, true);

  lf_blockParkingControls();
  EXPECT_TRUE(gv_staticUpdateRunning);
  expectEnabled(parking, false);
  expectEnabled({&STRAIGHT_PBS_ONLY}, true);
  EXPECT_EQ(window.invalidations(Band::Controls), before + 2);

  // With ILO on there is no next update, so Now keeps its state.
  INITIAL_LOAD_ONLY.set(true);
  lf_unblockParkingControls();
  expectEnabled({&BUTTON_NOW}, false);
}

TEST_F(ControlsTest, TextsOfControlsAndOfMissingOnes) {
  test::LogCapture log;
  lf_createControls();
  lf_setControlText(BLOCK_CALLSIGN.controlId, "BAW12");
  EXPECT_EQ(lf_getTextFromId(BLOCK_CALLSIGN.controlId), "BAW12");
  EXPECT_EQ(lf_getTextFromId(4242), "");
  lf_setControlText(4243, "x");
  EXPECT_EQ(window.invalidations(Band::Controls), 1u);
  const std::string text = log.text();
  EXPECT_NE(text.find("\nGetDlgItem failed for ID 4242\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nGetDlgItem failed for ID 4243\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace orv
