#include "refdata/data_file_crypto.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <system_error>

#include "data_file_encrypt.h"
#include "test_support.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

// Text of a given length that differs from chunk to chunk.
std::string plainText(std::size_t length) {
  std::string text;
  text.reserve(length);
  for (std::size_t i = 0; i < length; ++i) text.push_back(static_cast<char>('a' + (i * 7 + i / 4096) % 26));
  return text;
}

std::string decryptError(const DataKey& key, const fs::path& enc, const fs::path& plain) {
  try {
    gf_streamDecrypt(key, enc, plain);
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return "no error";
}

TEST(DataFileCrypto, RoundTripsWholeAndPartialChunks) {
  test::TempDir dir;
  for (std::size_t length : {std::size_t{0}, std::size_t{1}, kDataPlainChunk, 2 * kDataPlainChunk,
                             3 * kDataPlainChunk + 100}) {
    const std::string plain = plainText(length);
    const std::string enc = gf_encryptBytes(gf_dataKey(), plain);
    const std::size_t chunks = length == 0 ? 1 : (length + kDataPlainChunk - 1) / kDataPlainChunk;
    EXPECT_EQ(enc.size(), kDataHeaderBytes + length + chunks * 17) << length;

    writeFile(dir / "a.enc", enc);
    ASSERT_TRUE(decryptDataFile(dir / "a.enc", dir / "a.xml")) << length;
    EXPECT_EQ(readFile(dir / "a.xml"), plain) << length;

    // The file encrypter makes the same chunking as the in-memory one.
    writeFile(dir / "b.xml", plain);
    gf_streamEncrypt(gf_dataKey(), dir / "b.xml", dir / "b.enc");
    EXPECT_EQ(fs::file_size(dir / "b.enc"), enc.size()) << length;
    ASSERT_TRUE(decryptDataFile(dir / "b.enc", dir / "b.out")) << length;
    EXPECT_EQ(readFile(dir / "b.out"), plain) << length;
  }
}

TEST(DataFileCrypto, OneChangedBitInAnyChunkFailsAndLeavesNoPlainFile) {
  test::TempDir dir;
  test::LogCapture log;
  const std::string plain = plainText(3 * kDataPlainChunk + 500);
  const std::string good = gf_encryptBytes(gf_dataKey(), plain);
  // The header, each of the four chunks in its middle, and the last byte of the file.
  std::vector<std::size_t> positions{5};
  for (std::size_t chunk = 0; chunk < 4; ++chunk)
    positions.push_back(kDataHeaderBytes + chunk * kDataCipherChunk + 300);
  positions.push_back(good.size() - 1);
  for (std::size_t position : positions) {
    std::string bad = good;
    bad[position] = static_cast<char>(bad[position] ^ 0x10);
    writeFile(dir / "d.enc", bad);
    writeFile(dir / "d.xml", "left from before");
    EXPECT_FALSE(decryptDataFile(dir / "d.enc", dir / "d.xml")) << position;
    EXPECT_FALSE(fs::exists(dir / "d.xml")) << position;
  }
  // Every damaged chunk, the first one too, is a failed decryption.
  EXPECT_EQ(log.text().find("Invalid header or key"), std::string::npos) << log.text();
  std::size_t failures = 0;
  for (std::size_t at = 0; (at = log.text().find("==> gf_streamDecrypt exception: Decryption failed\n", at)) != std::string::npos; ++at)
    ++failures;
  EXPECT_EQ(failures, positions.size());
}

TEST(DataFileCrypto, HeaderKeyAndFileFailuresCarryTheirTexts) {
  test::TempDir dir;
  const std::string enc = gf_encryptBytes(gf_dataKey(), plainText(5000));

  DataKey otherKey = gf_dataKey();
  otherKey[0] = static_cast<unsigned char>(otherKey[0] ^ 1);
  writeFile(dir / "k.enc", enc);
  // The header only seeds the stream: another key fails at the first chunk.
  EXPECT_EQ(decryptError(otherKey, dir / "k.enc", dir / "k.xml"), "Decryption failed");

  writeFile(dir / "short.enc", enc.substr(0, kDataHeaderBytes - 1));
  EXPECT_EQ(decryptError(gf_dataKey(), dir / "short.enc", dir / "short.xml"), "Invalid header or key");

  EXPECT_EQ(decryptError(gf_dataKey(), dir / "missing.enc", dir / "m.xml"),
            "Could not open input file: " + (dir / "missing.enc").string());
  EXPECT_FALSE(decryptDataFile(dir / "missing.enc", dir / "m.xml"));

  const fs::path noFolder = dir / "no-such-folder" / "k.xml";
  EXPECT_EQ(decryptError(gf_dataKey(), dir / "k.enc", noFolder), "Could not open output file: " + noFolder.string());
}

TEST(DataFileCrypto, HeaderOnlyCutStreamAndTrailingBytes) {
  test::TempDir dir;
  const std::string plain = plainText(2 * kDataPlainChunk + 10);
  const std::string enc = gf_encryptBytes(gf_dataKey(), plain);

  // Only the header: an empty plain file and no error.
  writeFile(dir / "h.enc", enc.substr(0, kDataHeaderBytes));
  ASSERT_TRUE(decryptDataFile(dir / "h.enc", dir / "h.xml"));
  EXPECT_TRUE(fs::exists(dir / "h.xml"));
  EXPECT_EQ(fs::file_size(dir / "h.xml"), 0u);

  // Without the final chunk the chunks that passed stay; the reader finds the text cut.
  writeFile(dir / "c.enc", enc.substr(0, kDataHeaderBytes + 2 * kDataCipherChunk));
  ASSERT_TRUE(decryptDataFile(dir / "c.enc", dir / "c.xml"));
  EXPECT_EQ(readFile(dir / "c.xml"), plain.substr(0, 2 * kDataPlainChunk));

  // Reading stops at the final tag: bytes behind a full final chunk are not read. An old
  // plain file is overwritten.
  const std::string full = plainText(2 * kDataPlainChunk);
  writeFile(dir / "t.enc", gf_encryptBytes(gf_dataKey(), full) + "garbage behind the end");
  writeFile(dir / "t.xml", std::string(50000, 'x'));
  ASSERT_TRUE(decryptDataFile(dir / "t.enc", dir / "t.xml"));
  EXPECT_EQ(readFile(dir / "t.xml"), full);
}

TEST(DataFileCrypto, RemoveDataFileToleratesAbsenceAndLogsFailure) {
  test::TempDir dir;
  test::LogCapture log;
  removeDataFile(dir / "absent.xml");
  writeFile(dir / "present.xml", "x");
  removeDataFile(dir / "present.xml");
  EXPECT_FALSE(fs::exists(dir / "present.xml"));
  EXPECT_EQ(log.text().find("could not remove"), std::string::npos);

  // A folder with content in the plain file's place cannot be removed.
  fs::create_directories(dir / "busy.xml" / "inside");
  std::error_code refused;
  fs::remove(dir / "busy.xml", refused);
  ASSERT_TRUE(refused);
  removeDataFile(dir / "busy.xml");
  // A plain line with the system's error number.
  EXPECT_NE(log.text().find(fmt::format("\nWarning: could not remove {}, errorcode: {}\n", (dir / "busy.xml").string(),
                                        refused.value())),
            std::string::npos)
      << log.text();
}

}  // namespace
}  // namespace orv
