#pragma once
// Where the maker's files come from: the root of the download site, ending in "/". Data
// files, versions and archived airport files lie under its "downloads/". The maker's host by
// default; a run without the internet (the default run, the tests) names a local site with
// the command-line option --download-site. Set before any thread that downloads is started.
#include <string>

namespace orv {

inline constexpr const char* kMakerSite = "https://www.tarnwell.com/";

inline std::string gv_downloadSite = kMakerSite;

// Sets the site; a missing trailing "/" is added.
void gf_setDownloadSite(std::string site);

}  // namespace orv
