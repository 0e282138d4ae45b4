#pragma once
// The `parameters` block of an airport file: each parameter looked up by its exact name, the
// first match winning. A missing parameter is absent, which is neither 0 nor the empty text.
#include <pugixml.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace orv {

// The element that holds meta, parameters and parkpositions: `root`, or the document itself
// in files without it.
pugi::xml_node gf_airportFileHolder(const pugi::xml_document& doc);

std::optional<std::int32_t> gf_intParameter(pugi::xml_node parameters, const char* name);
std::optional<std::string> gf_stringParameter(pugi::xml_node parameters, const char* name);
// "1", "true" and the like are true, "0" and "false" false.
std::optional<bool> gf_boolParameter(pugi::xml_node parameters, const char* name);

// Appends <parameter name= value=/>.
void gf_appendParameter(pugi::xml_node parameters, const char* name, const std::string& value);
void gf_appendParameter(pugi::xml_node parameters, const char* name, std::int32_t value);

}  // namespace orv
