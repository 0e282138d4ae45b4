#include "airportdata/stand_reader.h"

#include <numbers>
#include <stdexcept>
#include <unordered_set>

#include "airportdata/file_parameters.h"
#include "airportdata/stand_numbering.h"
#include "foundation/half_hours.h"
#include "foundation/log.h"
#include "foundation/text_utils.h"
#include "foundation/user_error.h"
#include "refdata/code_tables.h"
#include "refdata/registrations.h"
#include "refdata/valid_codes.h"

namespace orv {
namespace {

constexpr double kRadPerDeg = std::numbers::pi / 180.0;

// What a non-zero taxi-parking type says about the stand.
bool rampType(int type) { return (type >= 1 && type <= 4) || type == 14; }
bool cargoType(int type) { return type == 5 || type == 6; }

std::optional<StandOpt> readOption(pugi::xml_node opt, std::uint32_t number, bool fromArchive) {
  StandOpt option = readOptionAttributes(opt);
  if (option.day < 1 || option.day > 7 || option.hours == 0) return std::nullopt;
  option.number = number;
  option.fromArchive = fromArchive ? 1 : 0;
  return option;
}

}  // namespace

StandOpt readOptionAttributes(pugi::xml_node opt) {
  StandOpt option;
  option.reg = opt.attribute("reg").as_string();
  option.acCode = readOptionCode(opt, option.reg);
  Callsigns callsigns = splitCallsigns(opt.attribute("cs").as_string());
  option.cs = std::move(callsigns.cs);
  option.cs2 = std::move(callsigns.cs2);
  option.hours = gf_hours2bitset(opt.attribute("hh").as_string()).to_ullong();
  option.day = opt.attribute("day").as_uint(0);
  option.real = opt.attribute("soft").as_bool(false) ? 0 : 1;
  option.cpl = opt.attribute("cpl").as_bool(false);
  return option;
}

Callsigns splitCallsigns(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos) return {std::string(text), {}};
  return {std::string(text.substr(0, colon)), std::string(text.substr(colon + 1))};
}

AcCode readOptionCode(pugi::xml_node opt, const std::string& reg) {
  if (auto known = lookupRegistration(reg)) return *known;
  const std::string_view airline = opt.attribute("airl").as_string();
  const std::string_view type = opt.attribute("type").as_string();
  AcCode code;
  code.airline = airlineIndex(airline);
  code.acType = modelIndex(type);
  code.cargo = cargoOperators.contains(airline) || cargoTypes.contains(type) ? 1 : 0;
  return code;
}

std::string readStandId(pugi::xml_node parkpos, std::size_t count) {
  const pugi::xml_attribute attribute = parkpos.attribute("id");
  if (!attribute)
    throw UserErrorException(user_error::kStandAttribute, user_error::kParkingNoAttributeText, count, "id");
  std::string id = gf_trim(attribute.as_string());
  if (id.empty())
    throw UserErrorException(user_error::kStandAttribute, user_error::kStandEmptyAttributeText, count, "id");
  return id;
}

Stand readParkpos(pugi::xml_node parkpos, std::string id, bool fromArchive) {
  Stand stand;
  stand.id = std::move(id);
  stand.latitude = parkpos.attribute("latitude").as_double(0.0);
  stand.longitude = parkpos.attribute("longitude").as_double(0.0);
  const double radiusMetres = parkpos.attribute("radius").as_double(0.0);
  const double headingDegrees = parkpos.attribute("heading").as_double(0.0);
  const int type = parkpos.attribute("type").as_int(0);
  stand.type = static_cast<std::uint16_t>(type);
  if (type != 0) {
    stand.cargo = cargoType(type);
    stand.ramp = rampType(type);
  } else {
    stand.cargo = parkpos.attribute("cargo").as_bool(false);
    stand.ramp = parkpos.attribute("ramp").as_bool(false);
  }
  stand.heli = parkpos.attribute("heli").as_bool(false);
  stand.adjacent.reserve(8);

  std::size_t optionCount = 0;
  for ([[maybe_unused]] pugi::xml_node opt : parkpos.children("opt")) ++optionCount;
  stand.opts.reserve(optionCount);
  std::uint32_t number = 1;
  for (pugi::xml_node opt : parkpos.children("opt")) {
    if (auto option = readOption(opt, number, fromArchive)) {
      stand.opts.push_back(std::move(*option));
      ++number;
    }
  }
  stand.opts.shrink_to_fit();
  stand.radius = radiusMetres * kNmPerMetre;
  stand.heading = headingDegrees * kRadPerDeg;
  return stand;
}

void readStands(const pugi::xml_document& doc, std::vector<Stand>& stands) {
  const pugi::xml_node parkpositions = gf_airportFileHolder(doc).child("parkpositions");
  if (!parkpositions) return;
  std::unordered_set<std::string> seen;
  seen.reserve(512);
  std::size_t count = 0;
  for (pugi::xml_node parkpos : parkpositions.children("parkpos")) {
    std::string id = readStandId(parkpos, ++count);
    if (!seen.insert(id).second) throw UserErrorException(user_error::kStandTwice, user_error::kStandTwiceText, id);
    if (parkpos.attribute("latitude").as_double(0.0) == 0.0 && parkpos.attribute("longitude").as_double(0.0) == 0.0) {
      gf_log("stand {} has no valid lat/lon", id);
      continue;
    }
    stands.push_back(readParkpos(parkpos, std::move(id), true));
  }
}

std::vector<Stand> gf_standsFromText(std::string_view xml) {
  pugi::xml_document doc;
  if (const pugi::xml_parse_result parsed = doc.load_buffer(xml.data(), xml.size()); !parsed)
    throw std::runtime_error(parsed.description());
  std::vector<Stand> stands;
  readStands(doc, stands);
  lf_numberStands(stands);
  return stands;
}

}  // namespace orv
