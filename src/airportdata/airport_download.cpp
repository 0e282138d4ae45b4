#include "airportdata/airport_download.h"

#include <fmt/format.h>

#include <algorithm>
#include <system_error>

#include "airportdata/airport_paths.h"
#include "foundation/log.h"
#include "foundation/sim_choice.h"
#include "refdata/download_site.h"
#include "refdata/file_download.h"

namespace orv {

std::string gf_airportDownloadBase() {
  return gv_downloadSite + (gv_isMsfs2020 ? "downloads/MSFS/" : "downloads/MSFS2024/");
}

std::string downloadAirportFile(std::string_view xmlName, std::string_view localPath) {
  std::string path(xmlName);
  std::replace(path.begin(), path.end(), '\\', '/');
  const std::string url = gf_airportDownloadBase() + path;
  const std::filesystem::path local = gf_localPath(localPath);
  if (gf_downloadWithNewHandle(url, local, true)) return {};
  std::error_code ec;
  std::filesystem::remove(local, ec);
  std::string failure = fmt::format("failed to download: '{}'", url);
  gf_log(failure);
  return failure;
}

}  // namespace orv
