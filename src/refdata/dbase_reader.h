#pragma once
// Reading the dbase: the encrypted reference document of models, airlines, classes, wing
// spans, scenery lists and known registrations, into the tables of this folder.
#include <filesystem>

namespace orv {

// "input/dbase.enc" of the working folder.
inline constexpr const char* kDbaseEncPath = "input/dbase.enc";

// True when every table stands and the plain copy is gone; false when the plain text is
// not XML. Throws std::runtime_error when the file is missing or does not decrypt, and
// UserErrorException 61 (structure) or 88 (anything else) while reading.
bool gf_readDbase();
// The same for another file; the plain copy lies beside it with the extension ".xml".
bool gf_readDbaseFile(const std::filesystem::path& encPath);

// Empties every dbase table and the code tables.
void gf_resetDbase();

}  // namespace orv
