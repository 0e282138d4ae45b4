#pragma once
// Archived airport files on the download site: "downloads/MSFS/" for MSFS 2020 and
// "downloads/MSFS2024/" for MSFS 2024, below the site's root.
#include <string>
#include <string_view>

namespace orv {

// The base URL of the airport files of the selected simulator, ending in "/".
std::string gf_airportDownloadBase();

// Fetches a server path ("archive/stock/EHAM.xml") to the local text path. Empty on success;
// otherwise the failure text, and no file of that name is left behind.
std::string downloadAirportFile(std::string_view xmlName, std::string_view localPath);

}  // namespace orv
