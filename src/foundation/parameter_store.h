#pragma once
// parameters.xml in the user folder: reading all values, saving one at once after each change,
// and writing the whole file anew. Every save replaces the file in one rename.
#include <cstdint>
#include <string>

#include <pugixml.hpp>

#include "foundation/hook.h"
#include "foundation/parameter.h"

namespace orv {

// The `parameters` element of a loaded file: under `root`, or at document level in older files.
pugi::xml_node gf_parametersNode(const pugi::xml_document& doc);

// Reads the file and fills every value; true when the file was missing or unusable and a
// new one with the defaults has been written.
bool gf_readParameters();
// Writes the whole file from the six lists; with useDefaults every value is its default.
void gf_writeParameters(bool useDefaults);

void saveBool(const ValueParameter<bool>& parameter);
void saveInt(const ValueParameter<std::int32_t>& parameter);
void saveString(const ValueParameter<std::string>& parameter);

// Sets RANGE with its derived values (radius in nm as double, in metres as int).
void gf_setRange(std::int32_t nm);
// MAX_FIT_FL in hours and its stored form MAX_FIT (half hours minus 1).
void gf_setMaxFitHours(float hours);
void gf_maxFitFromStored();

// The controls show the stored values: after a read, and after a change made outside the
// window. Only the program knows the controls, so it binds this; unbound, nothing is shown.
inline constinit Hook<> gf_showParameterValues;

}  // namespace orv
