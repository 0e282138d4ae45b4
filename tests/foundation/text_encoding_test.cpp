#include "foundation/text_encoding.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "test_support.h"

namespace orv {
namespace {

using Lines = std::vector<std::string>;
using enum TextEncoding;

std::string utf16(std::u16string_view text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (char16_t u : text) {
    const char hi = static_cast<char>(u >> 8), lo = static_cast<char>(u & 0xFF);
    bytes += bigEndian ? std::string{hi, lo} : std::string{lo, hi};
  }
  return bytes;
}

// Writes the bytes, detects their encoding and reads them with it.
std::pair<TextEncoding, Lines> readBack(const test::TempDir& dir, std::string_view bytes) {
  test::writeFile(dir / "input.txt", bytes);
  std::pair<TextEncoding, Lines> r{gf_detectEncoding(dir / "input.txt"), {"stale"}};
  EXPECT_TRUE(gf_readLines(r.first, dir / "input.txt", r.second));
  return r;
}

TEST(TextEncoding, EveryEncodingReadsToTheSameUtf8Lines) {
  test::TempDir dir;
  const std::string utf8 = "Z\xC3\xBCrich caf\xC3\xA9 \xE2\x82\xAC\r\nline two";
  const std::u16string wide = u"Z\u00FCrich caf\u00E9 \u20AC\r\nline two";
  const Lines expected = {"Z\xC3\xBCrich caf\xC3\xA9 \xE2\x82\xAC", "line two"};
  const std::pair<std::string, TextEncoding> cases[] = {
      {utf16(wide, false), Utf16Le}, {utf16(wide, true), Utf16Be}, {"\xEF\xBB\xBF" + utf8, Utf8Bom},
      {utf8, Utf8},                  {"Z\xFCrich caf\xE9 \x80\r\nline two", Ansi}};
  for (const auto& [bytes, encoding] : cases)
    EXPECT_EQ(readBack(dir, bytes), std::pair(encoding, expected)) << static_cast<int>(encoding);
}

TEST(TextEncoding, Utf16SurrogatesAndMalformedFiles) {
  test::TempDir dir;
  // A pair gives one character; a lone surrogate gives U+FFFD, as on Windows.
  EXPECT_EQ(readBack(dir, utf16(u"a\U0001F600b\n", false)).second, Lines{"a\xF0\x9F\x98\x80" "b"});
  EXPECT_EQ(readBack(dir, utf16(u"x\xD800y", true)).second, Lines{"x\xEF\xBF\xBDy"});
  EXPECT_EQ(readBack(dir, "\xFF\xFE"), std::pair(Utf16Le, Lines{}));
  // An odd length, or UTF-16 known only by its zero bytes, gives no lines.
  EXPECT_EQ(readBack(dir, utf16(u"ab", false) + "c").second, Lines{});
  EXPECT_EQ(readBack(dir, std::string("A\0B\0", 4)), std::pair(Utf16Le, Lines{}));
  EXPECT_EQ(readBack(dir, std::string("A\0", 2)).first, Utf16Le);
  EXPECT_EQ(readBack(dir, std::string("\0A\0B", 4)).first, Utf16Be);
}

TEST(TextEncoding, LineEnds) {
  Lines lines{"stale"};
  gf_splitLines("text\n\n", lines);
  EXPECT_EQ(lines, (Lines{"text", ""}));
  gf_splitLines("a\r\nb\r\n\r\nc", lines);
  EXPECT_EQ(lines, (Lines{"a", "b", "", "c"}));
  // Only a carriage return right before the line feed belongs to the line end.
  gf_splitLines("a\rb\nc\r\r\n\r", lines);
  EXPECT_EQ(lines, (Lines{"a\rb", "c\r", "\r"}));
  gf_splitLines("\xEF\xBB\xBF\n", lines);
  EXPECT_EQ(lines, Lines{""});
  gf_splitLines("", lines);
  EXPECT_EQ(lines, Lines{});
}

TEST(TextEncoding, Utf8TestOfTheFirst4096Bytes) {
  test::TempDir dir;
  auto withAt = [](std::size_t at, std::string_view insert) {
    return std::string(5000, 'a').replace(at, insert.size(), insert);
  };
  EXPECT_EQ(readBack(dir, withAt(4095, "\xE9")).first, Ansi);
  EXPECT_EQ(readBack(dir, withAt(4096, "\xE9")).first, Utf8);
  // A valid sequence that the limit cuts counts as ANSI.
  EXPECT_EQ(readBack(dir, withAt(4094, "\xE2\x82\xAC")).first, Ansi);
  EXPECT_EQ(readBack(dir, withAt(4095, "\xC3\xA9")).first, Ansi);
  EXPECT_EQ(readBack(dir, "").first, Utf8);
  EXPECT_EQ(readBack(dir, "\xF0\x9F\x98\x80 \xED\xA0\x80").first, Utf8);
  for (const char* bad :
       {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "ab\x80", "\xC3 x"})
    EXPECT_EQ(readBack(dir, bad).first, Ansi) << bad;
}

TEST(TextEncoding, UnopenableFilesAndUnknownEncodings) {
  test::TempDir dir;
  Lines lines{"stale"};
  for (const auto& path : {dir / "missing.txt", dir.path()}) {
    EXPECT_EQ(gf_detectEncoding(path), Unopenable) << path;
    EXPECT_FALSE(gf_readLines(Utf8, path, lines)) << path;
    EXPECT_EQ(lines, Lines{});
  }
  test::writeFile(dir / "plain.txt", "x\n");
  try {
    gf_readLines(static_cast<TextEncoding>(7), dir / "plain.txt", lines);
    ADD_FAILURE() << "no error for encoding 7";
  } catch (const std::runtime_error& e) {
    EXPECT_EQ(std::string(e.what()), "file " + (dir / "plain.txt").string() + " has unknown charset: 7");
  }
}

TEST(TextEncoding, AnsiConversion) {
  EXPECT_EQ(gf_ansiToUtf8("plain"), "plain");
  EXPECT_EQ(gf_ansiToUtf8("\x80\x8A\x99\x9F\xA0\xFF"), "\xE2\x82\xAC\xC5\xA0\xE2\x84\xA2\xC5\xB8\xC2\xA0\xC3\xBF");
  // The bytes without a character keep their number, and the rest is converted still.
  EXPECT_EQ(gf_ansiToUtf8("\x81\x8D\x8F\x90\x9D \x80"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D \xE2\x82\xAC");
  // Files read as ANSI give the same, a leading UTF-8 mark dropped as in every split.
  test::TempDir dir;
  test::writeFile(dir / "ansi.txt", "\xEF\xBB\xBF\x81x\r\n\x80");
  Lines lines;
  EXPECT_TRUE(gf_readLines(Ansi, dir / "ansi.txt", lines));
  EXPECT_EQ(lines, (Lines{"\xC2\x81x", "\xE2\x82\xAC"}));
}

TEST(TextEncoding, WideText) {
  const std::string text = "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x98\x80";
  const std::wstring wide = utf8_to_wide(text);
  EXPECT_EQ(wide.substr(0, 2), (std::wstring{L'Z', static_cast<wchar_t>(0xFC)}));
  EXPECT_EQ(wide_to_utf8(wide), text);
  EXPECT_EQ(wide_to_utf8(std::wstring(1, static_cast<wchar_t>(0xDC00))), "\xEF\xBF\xBD");
  for (const char* bad : {"\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "a\x80"}) {
    try {
      utf8_to_wide(bad);
      ADD_FAILURE() << "accepted " << bad;
    } catch (const std::runtime_error& e) {
      EXPECT_STREQ(e.what(), "utf8_to_wide: invalid UTF-8");
    }
  }
}

}  // namespace
}  // namespace orv
