#include "airportdata/airport_file_load.h"

#include <fmt/format.h>
#include <pugixml.hpp>

#include <exception>
#include <optional>
#include <system_error>

#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_download.h"
#include "airportdata/airport_paths.h"
#include "airportdata/airport_settings.h"
#include "airportdata/file_parameters.h"
#include "airportdata/learned_file.h"
#include "airportdata/stand_numbering.h"
#include "airportdata/stand_reader.h"
#include "foundation/log.h"
#include "foundation/status_values.h"
#include "foundation/user_error.h"
#include "foundation/xml_file.h"
#include "foundation/xml_meta_reader.h"

namespace orv {
namespace {

// What the archived file says besides its stands.
struct ArchivedParameters {
  std::optional<std::string> version;
  std::optional<bool> facilities;
};

ArchivedParameters readArchivedParameters(pugi::xml_node parameters, ApfAirport& airport) {
  gv_rtTrafficWeek = gf_intParameter(parameters, "RT_traffic_week").value_or(0);
  airport.publisher = gf_stringParameter(parameters, "publisher").value_or("");
  ArchivedParameters read{gf_stringParameter(parameters, "version"), gf_boolParameter(parameters, "Facilities")};
  airport.version = read.version.value_or("");
  const auto altitude = gf_intParameter(parameters, "altitude");
  if (!altitude)
    throw UserErrorException(user_error::kParameterNotFound, user_error::kParameterNotFoundText, "altitude");
  airport.altitude = *altitude;
  airport.airportName = gf_stringParameter(parameters, "airport_name").value_or("");
  return read;
}

int standsLevelOf(const std::string& icao) {
  const RtAirport* airport = findRtAirport(icao);
  return airport ? airport->stands : 0;
}

void logAirport(const ApfAirport& airport, const ArchivedParameters& read, const QualityFactors& factors,
                std::size_t standCount) {
  gf_log("{:24}: {}", "publisher", airport.publisher);
  if (read.version) gf_log("{:24}: {}", "version", *read.version);
  gf_log("{:24}: {} ft", "altitude", airport.altitude);
  gf_log("{:24}: {}", "num_parkpos", standCount);
  if (read.facilities) gf_log("{:24}: {}", "Facilities", *read.facilities);
  gf_log("{:24}: {}", "quality factor", qualityFactorText(factors));
  gf_log("{:24}: {}", "RT traffic week", gv_rtTrafficWeek);
}

void showAirport(const ApfAirport& airport, const QualityFactors& factors, std::size_t standCount) {
  gParkingStatus.parkName.show(airport.airportName);
  gParkingStatus.parkPublisher.show(
      airport.version.empty() ? airport.publisher : fmt::format("{} ({})", airport.publisher, airport.version));
  gParkingStatus.qualityText.show(qualityFactorText(factors));
  gParkingStatus.rtTrafficWeek.show(gv_rtTrafficWeek);
  gParkingStatus.standCount.show(static_cast<unsigned>(standCount));
  gParkingStatus.handmadeMark.show(gv_handmade);
  gParkingStatus.fileLoadedMark.show(true);
}

std::string readApf(const std::string& xmlName, ApfAirport& airport, QualityFactors& qualityFactors,
                    std::vector<Stand>& stands) {
  if (xmlName.empty()) return "gf_readApf: xml is empty";
  if (airport.icao.empty()) return "gf_readApf: no park airport set";
  std::string localName = xmlName;
  if (!gf_isLocalAirportFile(xmlName)) {
    if (std::string failure = downloadAirportFile(xmlName, kParkAirportDownload); !failure.empty()) return failure;
    localName = kParkAirportDownload;
  }
  gv_handmade = false;

  pugi::xml_document doc;
  if (const pugi::xml_parse_result loaded = gf_loadXmlFile(doc, gf_localPath(localName)); !loaded)
    return fmt::format("{}: could not load file: {}", xmlName, loaded.description());
  const pugi::xml_node holder = gf_airportFileHolder(doc);
  if (!gf_readMeta(holder, false)) return fmt::format("{}: refused to load", xmlName);
  const ArchivedParameters read = readArchivedParameters(holder.child("parameters"), airport);

  stands.clear();
  readStands(doc, stands);
  // A file that states no factors is judged by its own options: unknown (-1) without any.
  qualityFactors = computeQualityFactors(stands);
  const auto qfReal = gf_intParameter(holder.child("parameters"), "Qf_real");
  const auto qfSoft = gf_intParameter(holder.child("parameters"), "Qf_soft");
  if (qfReal && qfSoft) {
    // A stated pair off the scale is no knowledge: the options judge the file instead.
    const auto onScale = [](std::int32_t factor) { return factor >= 0 && factor <= 100; };
    if (onScale(*qfReal) && onScale(*qfSoft))
      qualityFactors = {*qfReal, *qfSoft};
    else
      gf_log("{}: quality factors {}/{} are off the scale 0 to 100, ignored", xmlName, *qfReal, *qfSoft);
  }
  lf_rememberSettingsBeforeAirport();

  const std::string learned = learnedPathOf(xmlName, airport.publisher);
  std::error_code ec;
  if (!learned.empty() && std::filesystem::exists(gf_learnedFilePath(learned), ec)) {
    lf_readLearned(gf_learnedFilePath(learned), airport, stands, gv_handmade);
    qualityFactors = computeQualityFactors(stands);
    if (gv_handmade) gf_log("A handmade airport file overruled the archived file!");
  } else {
    gf_log("learned does not exist");
    lf_firstVisitSettings(qualityFactors, standsLevelOf(airport.icao));
  }
  lf_numberStands(stands);

  gf_log("Airport file read from '{}' for {}", gv_handmade ? learned : xmlName, airport.airportName);
  logAirport(airport, read, qualityFactors, stands.size());
  showAirport(airport, qualityFactors, stands.size());
  gv_airportAltitudeFt = static_cast<float>(airport.altitude);
  gv_airportFileValid = true;
  return stands.empty() ? "no stands found" : "";
}

}  // namespace

std::string gf_readApf(const std::string& xmlName, ApfAirport& airport, QualityFactors& qualityFactors,
                       std::vector<Stand>& stands) {
  try {
    return readApf(xmlName, airport, qualityFactors, stands);
  } catch (const UserErrorException&) {
    throw;
  } catch (const std::exception& e) {
    return fmt::format("gf_readApf: {}", e.what());
  }
}

}  // namespace orv
