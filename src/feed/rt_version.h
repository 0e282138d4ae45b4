#pragma once
// RealTraffic's reply to the version request: which edition runs. The professional one
// (level 2) runs with its own time, which then becomes the program's clock.
#include <string_view>

namespace orv {

// Sets gv_rtProf and the window's edition text "RT {prof|stnd} edition: {version}".
void lf_processRTVersion(std::string_view reply);

}  // namespace orv
