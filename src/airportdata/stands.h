#pragma once
// The stands of the park airport, read from its airport file.
#include <cstdint>
#include <string>

namespace orv {

// The name of stand sid as log lines show it.
std::string lf_standName(std::int32_t sid);

}  // namespace orv
