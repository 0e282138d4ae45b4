// Not built yet: no folder is walked; output/LiveriesScanned.xml stays as it is.
#include "liveries/livery_scan.h"

namespace orv {

void lf_scanLiveries() {}

}  // namespace orv
