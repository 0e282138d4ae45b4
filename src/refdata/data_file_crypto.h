#pragma once
// The encrypted reference data files: libsodium's secret stream (XChaCha20-Poly1305),
// nothing added. A 24-byte header, then chunks of 4096 plain bytes plus 17 bytes of
// authentication; the last chunk carries the final tag. A plain copy exists only while a
// reader works on it.
#include <cstddef>
#include <filesystem>

#include "refdata/data_key.h"

namespace orv {

inline constexpr std::size_t kDataHeaderBytes = 24;
inline constexpr std::size_t kDataPlainChunk = 4096;
inline constexpr std::size_t kDataCipherChunk = kDataPlainChunk + 17;

// Decrypts encPath into plainPath (overwritten). Throws std::runtime_error with the text
// the user sees. A stream that ends without the final tag is not an error here: the reader
// that follows finds the text cut.
void gf_streamDecrypt(const DataKey& key, const std::filesystem::path& encPath,
                      const std::filesystem::path& plainPath);

// The one entry for the readers: the program's key, every failure logged and turned into
// false, and a half-written plain file removed.
bool decryptDataFile(const std::filesystem::path& encPath, const std::filesystem::path& plainPath);

// Deletes the file when it exists; a failed delete is logged and the caller goes on.
void removeDataFile(const std::filesystem::path& path);

}  // namespace orv
