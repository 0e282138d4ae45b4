// Not built yet: the catalogue stays empty.
#include "liveries/livery_catalogue.h"

namespace orv {

void lf_processScannedLiveries() {}

}  // namespace orv
