#include "refdata/download_site.h"

#include <utility>

namespace orv {

void gf_setDownloadSite(std::string site) {
  if (site.empty() || site.back() != '/') site += '/';
  gv_downloadSite = std::move(site);
}

}  // namespace orv
