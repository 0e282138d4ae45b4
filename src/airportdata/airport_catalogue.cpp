#include "airportdata/airport_catalogue.h"

#include <pugixml.hpp>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <unordered_set>

#include "airportdata/all_icao.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/user_error.h"
#include "foundation/xml_file.h"
#include "refdata/data_file_crypto.h"

namespace fs = std::filesystem;

namespace orv {

std::vector<RtAirport> gRtAirports;

namespace {

const fs::path kEncrypted = fs::path("input") / "airports.enc";
const fs::path kPlain = fs::path("input") / "airports.xml";

std::unordered_set<FixedCode<4>> gRtCodes;
bool gLoaded = false;

void addAirport(pugi::xml_node ap) {
  const FixedCode<4> icao(ap.attribute("c").as_string());
  if (!ap.attribute("la") || !ap.attribute("lo")) {
    setMessage(fmt::format("Missing latLons for airport '{}'", icao), true);
    return;
  }
  if (!ap.attribute("a")) {
    setMessage(fmt::format("Missing alt for airport '{}'", icao), true);
    return;
  }
  if (!ap.attribute("s")) {
    setMessage(fmt::format("Missing stands for airport '{}'", icao), true);
    return;
  }
  RtAirport airport;
  airport.icao = icao;
  if (const pugi::xml_attribute iata = ap.attribute("i")) {
    try {
      airport.iata = FixedCode<3>(iata.as_string());
    } catch (const std::invalid_argument& e) {
      gf_log("Error storing airport '{}' '{}': {}", icao, iata.as_string(), e.what());
      return;
    }
  }
  airport.latitude = ap.attribute("la").as_double();
  airport.longitude = ap.attribute("lo").as_double();
  airport.altitude = ap.attribute("a").as_float();
  airport.stands = ap.attribute("s").as_int();
  gRtAirports.push_back(airport);
}

void readPlainCatalogue() {
  pugi::xml_document doc;
  const pugi::xml_parse_result loaded = gf_loadXmlFile(doc, kPlain);
  if (!loaded) throw std::runtime_error(fmt::format("{} not loaded: {}", kPlain.string(), loaded.description()));
  const pugi::xml_node holder = doc.child("root") ? doc.child("root") : pugi::xml_node(doc);
  const pugi::xml_node airports = holder.child("airports");
  if (!airports) throw std::runtime_error(fmt::format("Missing <airports> root in: {}", kPlain.string()));
  for (pugi::xml_node ap : airports.children("ap")) addAirport(ap);
}

void removePlain() {
  std::error_code ec;
  fs::remove(kPlain, ec);
}

}  // namespace

bool gf_readAirports() {
  if (gLoaded) return !gRtAirports.empty();
  gRtAirports.clear();
  gRtCodes.clear();
  gRtAirports.reserve(15000);
  try {
    gf_streamDecrypt(gf_dataKey(), kEncrypted, kPlain);
    readPlainCatalogue();
    std::sort(gRtAirports.begin(), gRtAirports.end(),
              [](const RtAirport& a, const RtAirport& b) { return a.icao < b.icao; });
    gf_log("{:5} airports read", gRtAirports.size());
    removePlain();
  } catch (const std::exception& e) {
    removePlain();
    gRtAirports.clear();
    throw UserErrorException(user_error::kDecryptedRead, e.what());
  }
  gRtAirports.shrink_to_fit();
  for (const RtAirport& airport : gRtAirports) gRtCodes.insert(airport.icao);
  gLoaded = true;
  return !gRtAirports.empty();
}

bool lf_readAirportCatalogue() {
  const bool filled = gf_readAirports();
  // Like the catalogue, the list of codes is read once per process, not at every restart.
  if (gAllIcao.empty()) readAllIcao();
  return filled;
}

bool isRtAirport(std::string_view code) {
  if (code.size() != 4) return false;
  try {
    return gRtCodes.contains(FixedCode<4>(code));
  } catch (const std::invalid_argument&) {
    return false;
  }
}

const RtAirport* findRtAirport(std::string_view code) {
  if (!isRtAirport(code)) return nullptr;
  const FixedCode<4> key(code);
  const auto it = std::lower_bound(gRtAirports.begin(), gRtAirports.end(), key,
                                   [](const RtAirport& a, const FixedCode<4>& k) { return a.icao < k; });
  return it != gRtAirports.end() && it->icao == key ? &*it : nullptr;
}

void lf_clearAirportCatalogue() {
  gRtAirports.clear();
  gRtCodes.clear();
  gLoaded = false;
}

}  // namespace orv
