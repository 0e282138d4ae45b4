#pragma once
#include <optional>
#include <string>
#include <vector>

namespace orv {

// "--production" and "/production" ask for a production run, "--no-production" and
// "/no-production" for a normal one, in any case of letters; the last of them wins.
bool lf_productionRequested(const std::vector<std::string>& args);

// "--download-site URL": the root of the site that data and airport files are fetched from,
// in place of the maker's; the last one wins.
std::optional<std::string> lf_downloadSiteRequested(const std::vector<std::string>& args);

}  // namespace orv
