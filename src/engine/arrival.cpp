#include "engine/arrival.h"

namespace orv {

void lf_parkedConfig(AcRecord&) {}

}  // namespace orv
