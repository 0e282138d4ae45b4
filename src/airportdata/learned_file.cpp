#include "airportdata/learned_file.h"

#include <fmt/format.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <exception>

#include "airportdata/airport_settings.h"
#include "airportdata/file_parameters.h"
#include "airportdata/learned_merge.h"
#include "airportdata/stand_reader.h"
#include "foundation/generations.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/version_data.h"
#include "foundation/xml_file.h"
#include "foundation/xml_meta_reader.h"

namespace orv {
namespace {

// Learned files of older versions hold options in a form that no longer fits.
constexpr VersionData kFirstFittingVersion{11, 10, 0};

void warn(const std::string& text) { setMessage(text, true); }

void addManualStand(pugi::xml_node parkpos, std::string id, const std::string& file, bool clearFlights,
                    std::vector<Stand>& stands) {
  const double latitude = parkpos.attribute("latitude").as_double(0.0);
  const double longitude = parkpos.attribute("longitude").as_double(0.0);
  const double radius = parkpos.attribute("radius").as_double(0.0);
  if ((std::abs(latitude) <= 0.0001 && std::abs(longitude) <= 0.0001) || radius == 0.0) {
    warn(fmt::format("manually created standid {} misses correct attributes in {}", id, file));
    return;
  }
  Stand stand = readParkpos(parkpos, std::move(id), false);
  stand.manual = true;
  if (clearFlights) stand.opts.clear();
  stands.push_back(std::move(stand));
}

void mergeStands(const pugi::xml_document& doc, const std::string& file, bool clearFlights,
                 std::vector<Stand>& stands) {
  const pugi::xml_node parkpositions = gf_airportFileHolder(doc).child("parkpositions");
  std::size_t count = 0;
  for (pugi::xml_node parkpos : parkpositions.children("parkpos")) {
    std::string id = readStandId(parkpos, ++count);
    const auto existing = std::find_if(stands.begin(), stands.end(), [&](const Stand& s) { return s.id == id; });
    if (!parkpos.attribute("manual").as_bool(false)) {
      if (existing == stands.end())
        gf_log("learned stand {} in {} not found?", id, file);
      else
        mergeLearnedStand(*existing, parkpos, id, clearFlights);
    } else if (existing != stands.end()) {
      warn(fmt::format("manually created standid {} already exists in {}", id, file));
    } else {
      addManualStand(parkpos, std::move(id), file, clearFlights, stands);
    }
  }
}

void readLearned(const std::filesystem::path& path, const ApfAirport& airport, std::vector<Stand>& stands,
                 bool& handmade) {
  const std::string file = path.string();
  pugi::xml_document doc;
  if (const pugi::xml_parse_result loaded = gf_loadXmlFile(doc, path); !loaded) {
    gf_save1GenerationOf(path);
    warn(fmt::format("{} found, but could not be loaded, saved as *.0.xml: {}", file, loaded.description()));
    return;
  }
  gf_log("Read from learned airport file: '{}'", file);
  const pugi::xml_node holder = gf_airportFileHolder(doc);
  const auto meta = gf_readMeta(holder, true);
  if (!meta) return;
  bool clearFlights = false;
  if (VersionData(meta->version) < kFirstFittingVersion) {
    gf_log(
        "\nThis learned file was created with and older Orvane version than {},\nAll flights will be cleared, "
        "except for a handmade file\n",
        kFirstFittingVersion.text());
    clearFlights = true;
  }
  const pugi::xml_node parameters = holder.child("parameters");
  if (auto name = gf_stringParameter(parameters, "airport_name"); name && *name != airport.airportName)
    warn(fmt::format("Warning: learned file airport name: '{}' differs from archived file airport name: '{}'", *name,
                     airport.airportName));
  lf_readLearnedSettings(parameters);
  handmade = gf_boolParameter(parameters, "handmade").value_or(false);
  if (handmade) {
    stands.clear();
    readStands(doc, stands);
    gf_log("{:24}: {}", "handmade", 1);
    return;
  }
  mergeStands(doc, file, clearFlights, stands);
}

}  // namespace

void lf_readLearned(const std::filesystem::path& path, const ApfAirport& airport, std::vector<Stand>& stands,
                    bool& handmade) {
  try {
    readLearned(path, airport, stands, handmade);
  } catch (const std::exception& e) {
    gf_log("lf_readLearned: {}", e.what());
  }
}

}  // namespace orv
