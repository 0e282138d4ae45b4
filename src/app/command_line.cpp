#include "app/command_line.h"

#include <algorithm>
#include <cctype>

namespace orv {

bool lf_productionRequested(const std::vector<std::string>& args) {
  bool production = false;
  for (std::string a : args) {
    std::transform(a.begin(), a.end(), a.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (a == "--production" || a == "/production") production = true;
    if (a == "--no-production" || a == "/no-production") production = false;
  }
  return production;
}

std::optional<std::string> lf_downloadSiteRequested(const std::vector<std::string>& args) {
  std::optional<std::string> site;
  for (std::size_t i = 0; i + 1 < args.size(); ++i)
    if (args[i] == "--download-site") site = args[i + 1];
  return site;
}

}  // namespace orv
