#include "airportdata/airport_lookup.h"

#include <fmt/format.h>

#include <cctype>
#include <fstream>
#include <system_error>

#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_paths.h"

namespace orv {
namespace {

bool exists(std::string_view text) {
  std::error_code ec;
  return std::filesystem::is_regular_file(gf_localPath(text), ec);
}

std::string inFolder(std::string_view folder, std::string_view icao, std::string_view extension) {
  return fmt::format("{}\\{}{}", folder, icao, extension);
}

bool hasStockFile(std::string_view icao) {
  const RtAirport* airport = findRtAirport(icao);
  return airport && airport->stands >= 1;
}

}  // namespace

std::string gf_readLinkFile(std::string_view linkPath) {
  std::ifstream in(gf_localPath(linkPath));
  std::string line;
  if (!in || !std::getline(in, line)) return {};
  while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back()))) line.pop_back();
  return gf_endsWithXml(line) ? line : std::string();
}

std::string locateAirportFile(std::string_view icao) {
  for (std::string_view folder : {kMyThirdPartyFolder, kMySimAddonFolder}) {
    if (std::string link = gf_readLinkFile(inFolder(folder, icao, ".txt")); !link.empty()) return link;
    if (std::string local = inFolder(folder, icao, ".xml"); exists(local)) return local;
  }
  if (hasStockFile(icao)) return fmt::format("archive/stock/{}.xml", icao);
  return {};
}

bool airportFileExists(std::string_view icao) {
  for (std::string_view folder : {kMyThirdPartyFolder, kMySimAddonFolder})
    for (std::string_view extension : {".xml", ".txt"})
      if (exists(inFolder(folder, icao, extension))) return true;
  return hasStockFile(icao);
}

}  // namespace orv
