#pragma once
// How log lines and reports write an AcCode.
#include <string>

#include "refdata/ac_code.h"

namespace orv {

// "DLH,EWG A320.(C)": airline, second airline, model, "." when from the registration table,
// "(C)" for a freighter; in fixed widths so that the columns of the log line up.
std::string gf_acCodeText(const AcCode& code);

}  // namespace orv
