#pragma once
// Users' text files come in whatever encoding their editor chose; the program works in UTF-8
// only. These functions find the encoding of a file and read it as UTF-8 lines, and convert
// to and from wide text at the platform's edge.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

// The numbers are fixed: callers and messages use them as they are.
enum class TextEncoding : std::int32_t {
  Ansi = 0,        // the system's code page; Windows-1252 outside Windows
  Utf16Le = 1,
  Utf16Be = 2,
  Utf8Bom = 3,     // UTF-8 with a byte order mark
  Utf8 = 4,        // UTF-8 without one, plain ASCII included
  Unopenable = 5,  // the file could not be opened
};

// From the byte order mark, else from zero bytes in the first four, else from a UTF-8 test
// of the first 4096 bytes. A multi-byte sequence cut by that limit makes the file ANSI.
TextEncoding gf_detectEncoding(const std::filesystem::path& file);

// Replaces `lines` with the file's lines in UTF-8; false when the file cannot be opened.
// UTF-16 is read only behind a byte order mark and with an even length, else no lines.
// Throws std::runtime_error for an encoding value outside 0..4.
bool gf_readLines(TextEncoding encoding, const std::filesystem::path& file, std::vector<std::string>& lines);

// Replaces `lines` with the lines of `bytes`: a leading UTF-8 byte order mark is skipped, lines
// end at a line feed with an optional carriage return before it, a last line without a line
// feed counts, and no empty line follows a final line feed.
void gf_splitLines(std::string_view bytes, std::vector<std::string>& lines);

// ANSI (Windows-1252) to UTF-8. The five bytes without a character in that code page become
// the control characters of the same number, as Windows does when not asked to reject them.
std::string gf_ansiToUtf8(std::string_view text);

// Throws std::runtime_error("utf8_to_wide: invalid UTF-8") for malformed input, overlong
// forms and encoded surrogates included.
std::wstring utf8_to_wide(std::string_view text);
// A lone surrogate becomes U+FFFD; the platform's own conversion does the same.
std::string wide_to_utf8(std::wstring_view text);

}  // namespace orv
