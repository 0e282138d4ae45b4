// Not built yet: nothing is matched, so there is nothing to forget or to write.
#include "liveries/livery_matching.h"

namespace orv {

void lf_clearNoMatch() {}
void lf_writeNoMatchList() {}
void gf_writeMatchingSummary() {}
void lf_clearLiveryCache() {}

}  // namespace orv
