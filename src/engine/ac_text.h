#pragma once
// How log lines name an aircraft.
#include <string>
#include <string_view>

#include "engine/live_aircraft.h"
#include "refdata/ac_code_text.h"

namespace orv {

// "DLH400   D-AIZA       FRA->JFK DLH A320 "
std::string gf_acText(const AcIdent& ident);
// "DLH400   D-AIZA DLH A320 "
std::string gf_acShortText(const AcIdent& ident);
// An exception in one aircraft's step, logged as an error with the step's label, the aircraft,
// the size of its stream and the names of its states; the other aircraft go on.
void gf_logAcFault(std::string_view label, std::string_view what, const LiveAc& ac);

}  // namespace orv
