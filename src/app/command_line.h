#pragma once
#include <string>
#include <vector>

namespace orv {

// "--production" and "/production" ask for a production run, "--no-production" and
// "/no-production" for a normal one, in any case of letters; the last of them wins.
bool lf_productionRequested(const std::vector<std::string>& args);

}  // namespace orv
