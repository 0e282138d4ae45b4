#pragma once
// Every setting of the program, and the six lists that give the order of parameters.xml.
#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "foundation/parameter.h"

namespace orv {

namespace detail {
std::vector<std::int32_t> steps(std::int32_t from, std::int32_t to, std::int32_t step,
                                std::vector<std::int32_t> tail = {});
std::vector<float> maxFitChoices();
std::vector<std::string> aiPackageOrders();
}  // namespace detail

// Plain bool.
inline ValueParameter<bool> RANDOM{"RANDOM", true};

// Check boxes.
inline CheckboxParameter ALWAYS_ON_TOP{"ALWAYS_ON_TOP", false, 32771, 147, "Stay on top"};
inline CheckboxParameter OBJECTID_LIST{"OBJECTID_LIST", false, 32775, 175, "Oid list"};
inline CheckboxParameter NAV_LIGHTS_WHILE_PARKED{"NAV_LIGHTS_WHILE_PARKED", true, 32774, 175, "Nav lights"};
inline CheckboxParameter AEROWINX{"AEROWINX", false, 32776, 203, "Aerowinx"};
inline CheckboxParameter GUID_CHANGES{"GUID_CHANGES", true, 32773, 203, "GUID changes"};
inline CheckboxParameter SCAN_LIVERIES{"SCAN_LIVERIES", true, 32798, 147, "Scan for liveries"};
inline CheckboxParameter LIG_AUTOMATIC{"LIG_AUTOMATIC", true, 32799, 147, "Automatic:"};
inline CheckboxParameter LIG_PRIORITIZE{"LIG_PRIORITIZE", true, 32800, 147, "Prioritize"};
inline CheckboxParameter SCAN_AIRPORTS{"SCAN_AIRPORTS", true, 32802, 175, "Scan for addon airports"};
inline CheckboxParameter LIGHT_AIRCRAFT{"LIGHT_AIRCRAFT", true, 32809, 203, "Light aircraft"};
inline CheckboxParameter HELICOPTERS{"HELICOPTERS", true, 32810, 203, "Helicopters"};
inline CheckboxParameter HIGH_PERF_AIRCRAFT{"HIGH_PERF_AIRCRAFT", true, 32811, 203, "FighterJets"};
inline CheckboxParameter AUTO_RANGE{"AUTO_RANGE", true, 32819, 231, "Auto radius"};
inline CheckboxParameter AIRBORNE_ONLY{"AIRBORNE_ONLY", false, 32821, 231, "AirOnly"};
inline CheckboxParameter COLLISION_USER_GND{"COLLISION_USER_GND", true, 32834, 287, "User ground"};
inline CheckboxParameter COLLISION_USER_AIR{"COLLISION_USER_AIR", true, 32833, 287, "User air"};
inline CheckboxParameter COLLISION_LIVE_PARKED_GND{"COLLISION_LIVE_PARKED_GND", false, 32835, 287, "Live X parked"};
inline CheckboxParameter STRAIGHT_PBS_ONLY{"STRAIGHT_PBS_ONLY", false, 32855, 315, "Straight push backs only"};
inline CheckboxParameter INITIAL_LOAD_ONLY{"INITIAL_LOAD_ONLY", false, 32851, 371, "ILO"};
inline CheckboxParameter WEEK{"WEEK", false, 32853, 371, "Week"};
inline CheckboxParameter PARK_SOFT{"PARK_SOFT", false, 32852, 371, "Soft"};

// Plain ints.
inline ValueParameter<std::int32_t> MAIN_WINDOW_X{"MAIN_WINDOW_X", 400, -30000, 30000};
inline ValueParameter<std::int32_t> MAIN_WINDOW_Y{"MAIN_WINDOW_Y", 20, -30000, 30000};
inline ValueParameter<std::int32_t> LAST_EPOCH_TIME{"LAST_EPOCH_TIME:", 0, 0, 2147483647};
inline ValueParameter<std::int32_t> CUSTOM_PARKING_PERCENTAGE{"CUSTOM_PARKING_PERCENTAGE", -1, -1, 100};
inline ValueParameter<std::int32_t> HOLDING_THRESHOLD_METERS{"HOLDING_THRESHOLD_METERS", 250, 10, 4000};
inline ValueParameter<std::int32_t> MAX_HOLDING_MINUTES{"MAX_HOLDING_MINUTES", 20, 1, 60};
inline ValueParameter<std::int32_t> MAX_FIT{"MAX_FIT", 47, 0, 47};

// Combos.
inline ComboParameter MATCHING_DEPTH{"MATCHING_DEPTH", 4, {1, 2, 3, 4}, 32808, 203};
inline ComboParameter RANGE{"RANGE", 40, {2, 3, 4, 5, 6, 8, 10, 12, 14, 16, 18, 20, 25, 30, 35, 40, 50, 65, 80, 100},
                            32818, 231};
inline ComboParameter AR_ABOVE_HEIGHT{"AR_ABOVE_HEIGHT", 48000, detail::steps(18000, 48000, 3000), 32820, 231};
inline ComboParameter MAX_PARK_SEL{"MAX_PARK_SEL", 500, {0, 10, 25, 50, 75, 100, 500}, 32848, 315};
inline ComboParameter MAX_LIVE_SEL{"MAX_LIVE_SEL", 500, {0, 10, 25, 50, 75, 100, 500}, 32849, 315};
inline ComboParameter AIRP_RANGE{"AIRP_RANGE", 20, {5, 10, 15, 20, 25, 30}, 32840, 343};
inline ComboParameter AIRP_HEIGHT{"AIRP_HEIGHT", 18000, detail::steps(2000, 18000, 2000, {36000, 48000}), 32841, 343};
// Not stored: set back to 30 at every start of a run.
inline ComboParameter parking_percentage{"parking_percentage", 30, detail::steps(0, 100, 5), 32850, 371};
// Not stored: hours, kept through MAX_FIT.
inline FloatComboParameter MAX_FIT_FL{"MAX_FIT_FL", 24.0f, detail::maxFitChoices(), 32854, 371};

// Plain strings (some with a control).
inline ValueParameter<std::string> PROGRAM_VERSION{"PROGRAM_VERSION", ""};
inline ValueParameter<std::string> MSFS_INSTALL_PATH{"MSFS_INSTALL_PATH", ""};
inline ValueParameter<std::string> PORT_NUMBER{"PORT_NUMBER", "10747"};
inline std::array<ValueParameter<std::string>, 10> lfolder{
    ValueParameter<std::string>{"lfolder0", ""}, ValueParameter<std::string>{"lfolder1", ""},
    ValueParameter<std::string>{"lfolder2", ""}, ValueParameter<std::string>{"lfolder3", ""},
    ValueParameter<std::string>{"lfolder4", ""}, ValueParameter<std::string>{"lfolder5", ""},
    ValueParameter<std::string>{"lfolder6", ""}, ValueParameter<std::string>{"lfolder7", ""},
    ValueParameter<std::string>{"lfolder8", ""}, ValueParameter<std::string>{"lfolder9", ""}};
inline ValueParameter<std::string> AIG_VERSION{"AIG_VERSION", ""};
inline ValueParameter<std::string> DBASE_VERSION{"DBASE_VERSION", ""};
inline ValueParameter<std::string> AIRPORTS_VERSION{"AIRPORTS_VERSION", ""};
inline ValueParameter<std::string> LIV_SCAN_VERSION{"LIV_SCAN_VERSION", ""};
inline ValueParameter<std::string> ADDONS_SCAN_VERSION{"ADDONS_SCAN_VERSION", ""};
inline ValueParameter<std::string> MYSIMADDON24_VERSION{"MYSIMADDON24_VERSION", ""};
inline ValueParameter<std::string> MSFS_2024_INSTALL_PATH{"MSFS_2024_INSTALL_PATH", ""};
inline StringComboParameter AI_PACKAGE_SELECTOR{"AI_PACKAGE_SELECTOR", "AIG, FSLTL, JF, MTL",
                                                detail::aiPackageOrders(), 32790, 147};
inline EditParameter DESTINATION{"DESTINATION", "", 32839, 343};

// Edit strings whose control shows the value after reading.
inline EditParameter BLOCK_CALLSIGN{"BLOCK_CALLSIGN", "", 32828, 259};
inline StringComboParameter SIM_CHOICE{"SIM_CHOICE", "MSFS 2020", {"MSFS 2020", "MSFS 2024"}, 32789, 119};

// Controls that are not stored.
inline EditParameter ALL_INSTALL_PATH{"ALL_INSTALL_PATH", "", 32788, 119};
inline StringComboParameter CALLSIGN_2_OBJECTID{"CALLSIGN_2_OBJECTID", "", {}, 32831, 259};

// Buttons: the name is the caption.
inline ButtonControl BUTTON_TBLO{"tblo.zip", 32804, 175};
inline ButtonControl BUTTON_UNBLOCK{"Unblock", 32829, 257};
inline ButtonControl BUTTON_CS2OID{"cs->oid:", 32830, 257};
inline ButtonControl BUTTON_BLOCK{"Block", 32832, 257};
inline ButtonControl BUTTON_NOW{"Now", 32847, 313};
inline ButtonControl BUTTON_REREAD{"Re-read", 32838, 341};
inline ButtonControl BUTTON_FLUSH_STATIC{"Flush static", 32857, 369};

// Derived values of RANGE, written by gf_setRange on the run thread (the automatic range) and
// the window's; the Traffic Reader and the SimClient thread read them, a stale value is fine.
inline std::atomic<double> gv_rangeNm{40.0};
inline std::atomic<std::int32_t> gv_rangeMeters{40 * 1852};

// The six lists, in the order of the file.
const std::vector<ValueParameter<bool>*>& gf_boolList();
const std::vector<CheckboxParameter*>& gf_checkboxList();
const std::vector<ValueParameter<std::int32_t>*>& gf_intList();
const std::vector<ComboParameter*>& gf_comboList();
const std::vector<ValueParameter<std::string>*>& gf_stringList();
const std::vector<EditParameter*>& gf_editList();

}  // namespace orv
