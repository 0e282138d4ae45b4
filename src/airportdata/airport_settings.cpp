#include "airportdata/airport_settings.h"

#include <cmath>

#include "airportdata/file_parameters.h"
#include "airportdata/quality_factors.h"
#include "foundation/log.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"

namespace orv {
namespace {

struct ParkingSettings {
  std::int32_t maxLiveSel = 0;
  std::int32_t maxFit = 0;
  std::int32_t parkingPercentage = 0;
  bool autoRange = false;
  std::int32_t range = 0;
  bool initialLoadOnly = false;
  bool parkSoft = false;
  bool week = false;
};

ParkingSettings gSettingsBefore;

ParkingSettings currentSettings() {
  return {MAX_LIVE_SEL.value, MAX_FIT.value,           parking_percentage.value, AUTO_RANGE.value,
          RANGE.value,        INITIAL_LOAD_ONLY.value, PARK_SOFT.value,          WEEK.value};
}

void logSetting(const std::string& name, auto value) { gf_log("{:24}: {}", name, value); }

void readBool(pugi::xml_node parameters, ValueParameter<bool>& parameter) {
  if (auto value = gf_boolParameter(parameters, parameter.name.c_str())) {
    parameter.set(*value);
    logSetting(parameter.name, parameter.value);
  }
}

}  // namespace

void lf_rememberSettingsBeforeAirport() { gSettingsBefore = currentSettings(); }

void lf_restoreSettingsBeforeAirport() {
  const ParkingSettings& s = gSettingsBefore;
  MAX_LIVE_SEL.set(s.maxLiveSel);
  MAX_FIT.set(s.maxFit);
  gf_maxFitFromStored();
  parking_percentage.set(s.parkingPercentage);
  AUTO_RANGE.set(s.autoRange);
  gf_setRange(s.range);
  INITIAL_LOAD_ONLY.set(s.initialLoadOnly);
  PARK_SOFT.set(s.parkSoft);
  WEEK.set(s.week);
  gf_showParameterValues();
}

void lf_firstVisitSettings(const QualityFactors& factors, int standsLevel) {
  if (factors.real < 3 && factors.soft >= 1) {
    PARK_SOFT.set(true);
    WEEK.set(true);
    gf_setMaxFitHours(24.0f);
  } else if (factors.real >= 46) {
    PARK_SOFT.set(false);
    WEEK.set(false);
  }
  parking_percentage.set(standsLevel == 1 ? 100 : standsLevel == 2 ? 50 : 30);
  gf_log("{:24}: {}%", parking_percentage.name, parking_percentage.value);
  gf_showParameterValues();
}

void lf_readLearnedSettings(pugi::xml_node parameters) {
  if (auto value = gf_intParameter(parameters, MAX_LIVE_SEL.name.c_str())) {
    MAX_LIVE_SEL.set(*value);
    logSetting(MAX_LIVE_SEL.name, MAX_LIVE_SEL.value);
  }
  if (auto value = gf_intParameter(parameters, RANGE.name.c_str())) {
    gf_setRange(*value);
    logSetting(RANGE.name, RANGE.value);
  }
  readBool(parameters, AUTO_RANGE);
  // A learned file of an older kind has no percentage: it gets the plain default.
  parking_percentage.set(gf_intParameter(parameters, parking_percentage.name.c_str()).value_or(30));
  logSetting(parking_percentage.name, parking_percentage.value);
  readBool(parameters, WEEK);
  readBool(parameters, PARK_SOFT);
  if (auto value = gf_intParameter(parameters, MAX_FIT.name.c_str())) {
    MAX_FIT.set(*value);
    gf_maxFitFromStored();
    gf_log("{:24}: {} (max number of half hours, is {:.1F} hrs decimal)", MAX_FIT.name, MAX_FIT.value,
           MAX_FIT_FL.value);
  }
  readBool(parameters, INITIAL_LOAD_ONLY);
  gf_showParameterValues();
}

void lf_appendParkingSettings(pugi::xml_node parameters) {
  gf_appendParameter(parameters, RANGE.name.c_str(), RANGE.value);
  gf_appendParameter(parameters, AUTO_RANGE.name.c_str(), AUTO_RANGE.value ? 1 : 0);
  gf_appendParameter(parameters, WEEK.name.c_str(), WEEK.value ? 1 : 0);
  gf_appendParameter(parameters, PARK_SOFT.name.c_str(), PARK_SOFT.value ? 1 : 0);
  gf_appendParameter(parameters, parking_percentage.name.c_str(), parking_percentage.value);
  gf_appendParameter(parameters, INITIAL_LOAD_ONLY.name.c_str(), INITIAL_LOAD_ONLY.value ? 1 : 0);
  // The fit goes as the index of the half-hour list, not in hours.
  gf_appendParameter(parameters, MAX_FIT.name.c_str(),
                     static_cast<std::int32_t>(std::lround(2.0 * MAX_FIT_FL.value)) - 1);
  gf_appendParameter(parameters, MAX_LIVE_SEL.name.c_str(), MAX_LIVE_SEL.value);
}

}  // namespace orv
