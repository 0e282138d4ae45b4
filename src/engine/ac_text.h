#pragma once
// How log lines name an aircraft.
#include <string>

#include "engine/live_aircraft.h"
#include "refdata/ac_code_text.h"

namespace orv {

// "DLH400   D-AIZA       FRA->JFK DLH A320 "
std::string gf_acText(const AcIdent& ident);
// "DLH400   D-AIZA DLH A320 "
std::string gf_acShortText(const AcIdent& ident);

}  // namespace orv
