// Not built yet: no registration list is read, so only the catalogue's own regcodes count.
#include "liveries/offline_regcodes.h"

namespace orv {

void gf_processOfflineRegcodes() {}

}  // namespace orv
