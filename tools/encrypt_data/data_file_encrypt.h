#pragma once
// The maker's side of the encrypted data files: the same secret stream and chunking that
// the program reads (chunks of 4096 plain bytes, the last one tagged final).
#include <filesystem>
#include <string>
#include <string_view>

#include "refdata/data_key.h"

namespace orv {

// Encrypts plainPath into encPath (overwritten). Throws std::runtime_error on failure.
void gf_streamEncrypt(const DataKey& key, const std::filesystem::path& plainPath, const std::filesystem::path& encPath);

// The same in memory: the whole encrypted file for the given plain text.
std::string gf_encryptBytes(const DataKey& key, std::string_view plain);

}  // namespace orv
