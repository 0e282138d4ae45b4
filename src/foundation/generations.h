#pragma once
// Backup generations of a file: "name0.ext", "name00.ext", "name000.ext".
#include <filesystem>
#include <string_view>

namespace orv {

// The name of a generation: the suffix goes before the last dot of the file name.
std::filesystem::path gf_generationPath(const std::filesystem::path& file, std::string_view suffix);

// Copies the file over its generation "0", when it exists.
void gf_save1GenerationOf(const std::filesystem::path& file);
// Shifts "00" to "000", "0" to "00" and the file to "0"; the oldest is dropped.
void gf_saveUpto3GenerationsOf(const std::filesystem::path& file);

}  // namespace orv
