#include "data_file_encrypt.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>

#include "refdata/data_file_crypto.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

struct Pusher {
  crypto_secretstream_xchacha20poly1305_state state;
  std::array<unsigned char, kDataHeaderBytes> header{};
  std::array<unsigned char, kDataCipherChunk> cipher{};

  explicit Pusher(const DataKey& key) {
    if (sodium_init() < 0) throw std::runtime_error("libsodium could not be initialised");
    crypto_secretstream_xchacha20poly1305_init_push(&state, header.data(), key.data());
  }
  // Encrypts one chunk into cipher; returns its length.
  std::size_t push(const unsigned char* plain, std::size_t length, bool last) {
    unsigned long long cipherLength = 0;
    const unsigned char tag = last ? crypto_secretstream_xchacha20poly1305_TAG_FINAL : 0;
    crypto_secretstream_xchacha20poly1305_push(&state, cipher.data(), &cipherLength, plain, length, nullptr, 0, tag);
    return static_cast<std::size_t>(cipherLength);
  }
};

}  // namespace

void gf_streamEncrypt(const DataKey& key, const fs::path& plainPath, const fs::path& encPath) {
  std::ifstream in(plainPath, std::ios::binary);
  if (!in) throw std::runtime_error("Could not open input file: " + plainPath.string());
  std::ofstream out(encPath, std::ios::binary | std::ios::trunc);
  if (!out) throw std::runtime_error("Could not open output file: " + encPath.string());

  Pusher pusher(key);
  out.write(reinterpret_cast<const char*>(pusher.header.data()), static_cast<std::streamsize>(pusher.header.size()));
  std::array<unsigned char, kDataPlainChunk> plain{};
  for (;;) {
    in.read(reinterpret_cast<char*>(plain.data()), static_cast<std::streamsize>(plain.size()));
    const auto got = static_cast<std::size_t>(in.gcount());
    const bool last = in.peek() == std::ifstream::traits_type::eof();
    const std::size_t length = pusher.push(plain.data(), got, last);
    out.write(reinterpret_cast<const char*>(pusher.cipher.data()), static_cast<std::streamsize>(length));
    if (last) break;
  }
  out.close();
  if (!out) throw std::runtime_error("Could not write output file: " + encPath.string());
}

std::string gf_encryptBytes(const DataKey& key, std::string_view plain) {
  Pusher pusher(key);
  std::string result(reinterpret_cast<const char*>(pusher.header.data()), pusher.header.size());
  result.reserve(pusher.header.size() + plain.size() + (plain.size() / kDataPlainChunk + 1) * 17);
  std::size_t offset = 0;
  do {
    const std::size_t length = std::min(kDataPlainChunk, plain.size() - offset);
    const bool last = offset + length == plain.size();
    const std::size_t cipherLength =
        pusher.push(reinterpret_cast<const unsigned char*>(plain.data() + offset), length, last);
    result.append(reinterpret_cast<const char*>(pusher.cipher.data()), cipherLength);
    offset += length;
  } while (offset < plain.size());
  return result;
}

}  // namespace orv
