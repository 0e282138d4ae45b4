#include "airportdata/closest_airport.h"

#include <pugixml.hpp>

#include <exception>
#include <system_error>

#include "airportdata/airport_download.h"
#include "airportdata/airport_lookup.h"
#include "airportdata/airport_paths.h"
#include "airportdata/file_parameters.h"
#include "foundation/haversine.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/xml_file.h"

namespace orv {
namespace {

constexpr double kUnknownNm = 100.0;
constexpr double kAirportReachNm = 5.0;

// A downloaded copy lives only as long as the question.
struct DownloadedCopy {
  bool downloaded = false;
  ~DownloadedCopy() {
    if (!downloaded) return;
    std::error_code ec;
    std::filesystem::remove(gf_localPath(kNeighbourDownload), ec);
  }
};

double nearestStand(std::string_view icao, double latitude, double longitude, std::string& standOut) {
  const std::string xmlName = locateAirportFile(icao);
  if (xmlName.empty()) return kUnknownNm;
  DownloadedCopy copy;
  std::string local = xmlName;
  if (!gf_isLocalAirportFile(xmlName)) {
    if (!downloadAirportFile(xmlName, kNeighbourDownload).empty()) return kUnknownNm;
    copy.downloaded = true;
    local = kNeighbourDownload;
  }
  pugi::xml_document doc;
  if (!gf_loadXmlFile(doc, gf_localPath(local))) return kUnknownNm;
  const pugi::xml_node parkpositions = gf_airportFileHolder(doc).child("parkpositions");
  if (!parkpositions) return kUnknownNm;
  double best = kUnknownNm;
  for (pugi::xml_node parkpos : parkpositions.children("parkpos")) {
    const double d = gf_haversineNm(latitude, longitude, parkpos.attribute("latitude").as_double(0.0),
                                    parkpos.attribute("longitude").as_double(0.0));
    if (d < best) {
      best = d;
      standOut = parkpos.attribute("id").as_string();
    }
  }
  return best;
}

}  // namespace

double gf_readDestApfForClosestStand(std::string_view icao, double latitude, double longitude, std::string& standOut) {
  try {
    return nearestStand(icao, latitude, longitude, standOut);
  } catch (const std::exception& e) {
    setMessage(fmt::format("gf_readDestApfForClosestStand: {}", e.what()), true);
    return kUnknownNm;
  }
}

const RtAirport* closestAirport(double latitude, double longitude) {
  const RtAirport* nearest = nullptr;
  const RtAirport* neighbour = nullptr;
  double nearestNm = kAirportReachNm;
  for (const RtAirport& airport : gRtAirports) {
    const double d = gf_haversineNm(latitude, longitude, airport.latitude, airport.longitude);
    if (d > kAirportReachNm || (nearest && d >= nearestNm)) continue;
    neighbour = nearest;
    nearest = &airport;
    nearestNm = d;
  }
  if (!nearest || !neighbour) return nearest;
  gf_log("Airport {} is closest, neighbour is {}", nearest->icao, neighbour->icao);
  std::string nearestStandId, neighbourStandId;
  const double toNearest = gf_readDestApfForClosestStand(nearest->icao.view(), latitude, longitude, nearestStandId);
  const double toNeighbour =
      gf_readDestApfForClosestStand(neighbour->icao.view(), latitude, longitude, neighbourStandId);
  if (toNeighbour < toNearest) {
    gf_log("Airport {} is closest, but stand {} at neighbouring airport {} is closer at {:.0F} meters ...",
           nearest->icao, neighbourStandId, neighbour->icao, toNeighbour * 1852.0);
    return neighbour;
  }
  return nearest;
}

}  // namespace orv
