// encrypt_data PLAIN ENC [PLAIN ENC ...]: makes the program's encrypted data files.
#include <cstdio>
#include <exception>

#include "data_file_encrypt.h"

int main(int argc, char** argv) {
  if (argc < 3 || argc % 2 == 0) {
    std::fprintf(stderr, "usage: %s PLAIN ENC [PLAIN ENC ...]\n", argv[0]);
    return 2;
  }
  try {
    for (int i = 1; i + 1 < argc; i += 2) {
      orv::gf_streamEncrypt(orv::gf_dataKey(), argv[i], argv[i + 1]);
      std::printf("%s -> %s\n", argv[i], argv[i + 1]);
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "encrypt_data: %s\n", e.what());
    return 1;
  }
  return 0;
}
