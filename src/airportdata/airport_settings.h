#pragma once
// The parking settings that an airport remembers: a learned file carries the values last used
// at its airport, a first visit gets settings that suit the file, and leaving the airport puts
// back the values from before it.
#include <pugixml.hpp>

namespace orv {

struct QualityFactors;

// Keeps the present values as those from before the airport.
void lf_rememberSettingsBeforeAirport();
// Puts back the values kept by lf_rememberSettingsBeforeAirport; called when the park airport
// is cleared, so that the settings of a learned file hold for its airport only.
void lf_restoreSettingsBeforeAirport();

// A first visit: soft options and the whole week with a fit of 24 hours when the file knows
// little that is real but has soft options; neither when it knows much; and the parking
// percentage from the airport's stands level in the catalogue.
void lf_firstVisitSettings(const QualityFactors& factors, int standsLevel);

// The settings of a learned file, each one only when present, each logged.
void lf_readLearnedSettings(pugi::xml_node parameters);

// Appends the present settings to the parameters of a learned file, in their order.
void lf_appendParkingSettings(pugi::xml_node parameters);

}  // namespace orv
