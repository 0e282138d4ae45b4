// Not built yet: no download site is asked, the data files at hand are taken as current.
#include "refdata/versions_download.h"

namespace orv {

bool lf_checkVersionsAndDownload() { return true; }

}  // namespace orv
