// Not built yet: without a stand table a stand is named by its id.
#include "airportdata/stands.h"

namespace orv {

std::string lf_standName(std::int32_t sid) { return std::to_string(sid); }

}  // namespace orv
