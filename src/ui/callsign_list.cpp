// Not built yet: the combo box keeps what it holds.
#include "ui/callsign_list.h"

namespace orv {

void lf_fillCallsignList() {}

}  // namespace orv
