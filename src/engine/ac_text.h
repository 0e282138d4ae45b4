#pragma once
// How log lines name an aircraft.
#include <string>

#include "engine/live_aircraft.h"

namespace orv {

// "DLH,EWG A320.(C)": airline, second airline, model, "." when from the registration table,
// "(C)" for a freighter; in fixed widths so that the columns of the log line up.
std::string gf_acCodeText(const AcCode& code);
// "DLH400   D-AIZA       FRA->JFK DLH A320 "
std::string gf_acText(const AcIdent& ident);
// "DLH400   D-AIZA DLH A320 "
std::string gf_acShortText(const AcIdent& ident);

}  // namespace orv
