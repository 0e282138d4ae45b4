#pragma once
#include <string_view>

#include "foundation/version_data.h"

namespace orv {

inline constexpr std::string_view kProgramName = "Orvane";
inline constexpr VersionData kRunningVersion{12, 5, 4};
inline constexpr std::string_view kSimulators = "MSFS 2020/2024";

}  // namespace orv
