#include "refdata/data_file_crypto.h"

#include <sodium.h>

#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

#include "foundation/log.h"

namespace fs = std::filesystem;

namespace orv {

namespace {
static_assert(kDataHeaderBytes == crypto_secretstream_xchacha20poly1305_HEADERBYTES);
static_assert(kDataCipherChunk == kDataPlainChunk + crypto_secretstream_xchacha20poly1305_ABYTES);

std::size_t readUpTo(std::ifstream& in, unsigned char* buffer, std::size_t size) {
  in.read(reinterpret_cast<char*>(buffer), static_cast<std::streamsize>(size));
  return static_cast<std::size_t>(in.gcount());
}
}  // namespace

void gf_streamDecrypt(const DataKey& key, const fs::path& encPath, const fs::path& plainPath) {
  std::ifstream in(encPath, std::ios::binary);
  if (!in) throw std::runtime_error("Could not open input file: " + encPath.string());
  std::ofstream out(plainPath, std::ios::binary | std::ios::trunc);
  if (!out) throw std::runtime_error("Could not open output file: " + plainPath.string());

  std::array<unsigned char, kDataHeaderBytes> header{};
  crypto_secretstream_xchacha20poly1305_state state;
  if (readUpTo(in, header.data(), header.size()) != header.size() ||
      crypto_secretstream_xchacha20poly1305_init_pull(&state, header.data(), key.data()) != 0)
    throw std::runtime_error("Invalid header or key");

  std::array<unsigned char, kDataCipherChunk> cipher{};
  std::array<unsigned char, kDataPlainChunk> plain{};
  std::size_t got = readUpTo(in, cipher.data(), cipher.size());
  while (got > 0) {
    unsigned long long plainLength = 0;
    unsigned char tag = 0;
    if (crypto_secretstream_xchacha20poly1305_pull(&state, plain.data(), &plainLength, &tag, cipher.data(), got,
                                                   nullptr, 0) != 0) {
      // The header only seeds the stream: a file made with another key, or a damaged header,
      // shows itself here too, at the first chunk.
      throw std::runtime_error("Decryption failed");
    }
    out.write(reinterpret_cast<const char*>(plain.data()), static_cast<std::streamsize>(plainLength));
    if (!out) throw std::runtime_error("Could not write output file: " + plainPath.string());
    if (tag == crypto_secretstream_xchacha20poly1305_TAG_FINAL) break;
    got = readUpTo(in, cipher.data(), cipher.size());
  }
  out.close();
  if (!out) throw std::runtime_error("Could not write output file: " + plainPath.string());
}

bool decryptDataFile(const fs::path& encPath, const fs::path& plainPath) {
  try {
    if (sodium_init() < 0) throw std::runtime_error("libsodium could not be initialised");
    gf_streamDecrypt(gf_dataKey(), encPath, plainPath);
    return true;
  } catch (const std::exception& e) {
    gf_logError("{} exception: {}", "gf_streamDecrypt", e.what());
    removeDataFile(plainPath);
    return false;
  } catch (...) {
    gf_logError("{} exception: {}", "gf_streamDecrypt", "unknown");
    removeDataFile(plainPath);
    return false;
  }
}

void removeDataFile(const fs::path& path) {
  std::error_code ec;
  fs::remove(path, ec);
  if (ec) gf_log("Warning: could not remove {}, errorcode: {}", path.string(), ec.value());
}

}  // namespace orv
