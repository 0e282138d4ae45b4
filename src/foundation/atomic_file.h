#pragma once
// Saving a file so that a failure never leaves a cut or empty file behind: the content goes
// to a temporary file in the same folder, which then replaces the old one in one rename.
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

namespace orv {

// The writer fills the stream. False, with the reason in `error`, when anything failed;
// the old file is then untouched and no temporary file stays behind.
bool gf_writeFileAtomically(const std::filesystem::path& file, const std::function<void(std::ostream&)>& writer,
                            std::string* error = nullptr);

}  // namespace orv
