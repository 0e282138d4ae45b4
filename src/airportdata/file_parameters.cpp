#include "airportdata/file_parameters.h"

namespace orv {
namespace {

pugi::xml_attribute valueOf(pugi::xml_node parameters, const char* name) {
  return parameters.find_child_by_attribute("parameter", "name", name).attribute("value");
}

}  // namespace

pugi::xml_node gf_airportFileHolder(const pugi::xml_document& doc) {
  if (pugi::xml_node root = doc.child("root")) return root;
  return doc;
}

std::optional<std::int32_t> gf_intParameter(pugi::xml_node parameters, const char* name) {
  const pugi::xml_attribute value = valueOf(parameters, name);
  if (!value) return std::nullopt;
  return value.as_int(0);
}

std::optional<std::string> gf_stringParameter(pugi::xml_node parameters, const char* name) {
  const pugi::xml_attribute value = valueOf(parameters, name);
  if (!value) return std::nullopt;
  return std::string(value.as_string());
}

std::optional<bool> gf_boolParameter(pugi::xml_node parameters, const char* name) {
  const pugi::xml_attribute value = valueOf(parameters, name);
  if (!value) return std::nullopt;
  return value.as_bool(false);
}

void gf_appendParameter(pugi::xml_node parameters, const char* name, const std::string& value) {
  pugi::xml_node p = parameters.append_child("parameter");
  p.append_attribute("name") = name;
  p.append_attribute("value") = value.c_str();
}

void gf_appendParameter(pugi::xml_node parameters, const char* name, std::int32_t value) {
  gf_appendParameter(parameters, name, std::to_string(value));
}

}  // namespace orv
