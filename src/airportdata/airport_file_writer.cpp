#include <fmt/format.h>
#include <pugixml.hpp>

#include <numbers>

#include "airportdata/airport_file.h"
#include "airportdata/airport_settings.h"
#include "airportdata/file_parameters.h"
#include "airportdata/park_airport_file.h"
#include "foundation/half_hours.h"
#include "foundation/log.h"
#include "foundation/xml_meta.h"
#include "refdata/ac_code_text.h"
#include "refdata/code_tables.h"

namespace orv {
namespace {

constexpr double kDegPerRad = 180.0 / std::numbers::pi;

void setText(pugi::xml_node element, const char* name, const std::string& value) {
  element.append_attribute(name) = value.c_str();
}
void setFlag(pugi::xml_node element, const char* name, bool value) { element.append_attribute(name) = value ? 1 : 0; }
std::string metres(const Stand& stand) { return fmt::format("{:.1f}", stand.radius / kNmPerMetre); }

void writeParameters(pugi::xml_node parameters, const AirportFile& file, ApfMode mode) {
  const bool archive = mode == ApfMode::Archive;
  const bool stock = file.publisher == "stock";
  gf_appendParameter(parameters, "icao", file.icao ? file.icao.str() : std::string(20, ' '));
  gf_appendParameter(parameters, "airport_name", file.airportName);
  gf_appendParameter(parameters, "publisher", file.publisher);
  if (file.hasManifest && !file.version.empty() && !stock) gf_appendParameter(parameters, "version", file.version);
  if (gv_handmade) gf_appendParameter(parameters, "handmade", 1);
  if (archive || gv_handmade) gf_appendParameter(parameters, "altitude", file.altitude);
  if (archive) gf_appendParameter(parameters, "num_parkpos", static_cast<std::int32_t>(file.stands.size()));
  if (!stock) gf_appendParameter(parameters, "Facilities", file.facilities ? 1 : 0);
  if (gv_handmade && file.qfReal >= 0) gf_appendParameter(parameters, "Qf_real", file.qfReal);
  if (gv_handmade && file.qfSoft >= 0) gf_appendParameter(parameters, "Qf_soft", file.qfSoft);
  if (file.publisher.empty()) {
    gf_appendParameter(parameters, "BGLpath", file.bglPath);
    if (file.hasManifest) {
      gf_appendParameter(parameters, "manufacturer", file.manufacturer);
      gf_appendParameter(parameters, "creator", file.creator);
    }
  }
  if (!archive) lf_appendParkingSettings(parameters);
}

void writeGeometry(pugi::xml_node parkpos, const Stand& stand) {
  setText(parkpos, "latitude", fmt::format("{:.6f}", stand.latitude));
  setText(parkpos, "longitude", fmt::format("{:.6f}", stand.longitude));
  setText(parkpos, "heading", fmt::format("{:.1f}", stand.heading * kDegPerRad));
  setText(parkpos, "radius", metres(stand));
  parkpos.append_attribute("type") = stand.type;
  setFlag(parkpos, "cargo", stand.cargo);
  setFlag(parkpos, "ramp", stand.ramp);
  if (stand.heli) parkpos.append_attribute("heli") = 1;
  if (stand.manual) parkpos.append_attribute("manual") = 1;
}

void writeChanges(pugi::xml_node parkpos, const Stand& stand) {
  if (stand.radiusChange) {
    parkpos.append_attribute("radius_change") = 1;
    setText(parkpos, "radius", metres(stand));
  }
  if (stand.cargoChange) {
    parkpos.append_attribute("cargo_change") = 1;
    setFlag(parkpos, "cargo", stand.cargo);
  }
}

void writeOption(pugi::xml_node parkpos, const StandOpt& option) {
  const auto hours = gf_bitset2hours(HalfHours(option.hours));
  if (!hours) {
    gf_log("bit set problem: {} {} {}", option.reg, option.cs, gf_acCodeText(option.acCode));
    return;
  }
  pugi::xml_node opt = parkpos.append_child("opt");
  if (!option.reg.empty()) {
    setText(opt, "reg", option.reg);
    // A code from the registration table is found there again on reading.
    if (!option.acCode.fromRegTable) {
      setText(opt, "airl", airlineCode(option.acCode.airline));
      setText(opt, "type", modelCode(option.acCode.acType));
    }
  }
  if (!option.real) opt.append_attribute("soft") = 1;
  opt.append_attribute("day") = option.day;
  setText(opt, "hh", *hours);
  if (!option.cs.empty()) setText(opt, "cs", option.cs2.empty() ? option.cs : option.cs + ':' + option.cs2);
  if (option.cpl) opt.append_attribute("cpl") = 1;
}

}  // namespace

bool writeAirportFile(const AirportFile& file, const std::filesystem::path& path, ApfMode mode,
                      std::int32_t simNumber) {
  pugi::xml_document doc;
  pugi::xml_node root = doc.append_child("root");
  gf_appendMeta(root, simNumber);
  writeParameters(root.append_child("parameters"), file, mode);
  pugi::xml_node parkpositions = root.append_child("parkpositions");
  for (const Stand& stand : file.stands) {
    pugi::xml_node parkpos = parkpositions.append_child("parkpos");
    setText(parkpos, "id", stand.id);
    if (mode == ApfMode::Archive) {
      writeGeometry(parkpos, stand);
      continue;
    }
    if (stand.manual || gv_handmade)
      writeGeometry(parkpos, stand);
    else
      writeChanges(parkpos, stand);
    for (const StandOpt& option : stand.opts)
      if (option.number != 0) writeOption(parkpos, option);
  }
  return doc.save_file(path.c_str(), "  ", pugi::format_indent, pugi::encoding_auto);
}

}  // namespace orv
