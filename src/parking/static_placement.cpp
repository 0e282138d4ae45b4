// Not built yet: the list of static aircraft stays empty, so there is nothing to place.
#include "parking/static_placement.h"

namespace orv {

void lf_placeNextStatic() {}

}  // namespace orv
