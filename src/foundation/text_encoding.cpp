#include "foundation/text_encoding.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace orv {

namespace {

constexpr std::size_t kUtf8TestLength = 4096;
constexpr char32_t kReplacement = 0xFFFD;

// A buffer without the zero fill of std::string: files of many megabytes are read whole.
struct ByteBuffer {
  std::unique_ptr<char[]> data;
  std::size_t size = 0;
  std::string_view view() const { return {data.get(), size}; }
};

// Reads to the end in as few calls as the size allows; false on a read error (a folder, for one).
bool readRest(std::ifstream& in, const fs::path& file, ByteBuffer& out) {
  std::error_code ec;
  const auto expected = fs::file_size(file, ec);
  // One byte more than expected, so that the first read already meets the end of the file.
  std::size_t capacity = ec ? std::size_t{64 * 1024} : static_cast<std::size_t>(expected) + 1;
  out.data = std::make_unique_for_overwrite<char[]>(capacity);
  out.size = 0;
  for (;;) {
    in.read(out.data.get() + out.size, static_cast<std::streamsize>(capacity - out.size));
    out.size += static_cast<std::size_t>(in.gcount());
    if (in.bad()) return false;
    if (in.eof()) return true;
    // The file grew since its size was taken, or the size was unknown.
    capacity *= 2;
    auto bigger = std::make_unique_for_overwrite<char[]>(capacity);
    std::memcpy(bigger.get(), out.data.get(), out.size);
    out.data = std::move(bigger);
  }
}

bool isContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// The test of the encoding detection: permissive about encoded surrogates, strict about
// sequences that the limit cuts.
bool passesUtf8Test(const unsigned char* p, std::size_t n) {
  std::size_t i = 0;
  while (i < n) {
    const unsigned char c = p[i];
    if (c < 0x80) {
      ++i;
      continue;
    }
    std::size_t follow = 0;
    if (c >= 0xC2 && c <= 0xDF)
      follow = 1;
    else if ((c & 0xF0) == 0xE0)
      follow = 2;
    else if (c >= 0xF0 && c <= 0xF4)
      follow = 3;
    else
      return false;
    if (n - i - 1 < follow) return false;
    for (std::size_t k = 1; k <= follow; ++k)
      if (!isContinuation(p[i + k])) return false;
    const unsigned char next = p[i + 1];
    if ((c == 0xE0 && next < 0xA0) || (c == 0xF0 && next < 0x90) || (c == 0xF4 && next > 0x8F)) return false;
    i += follow + 1;
  }
  return true;
}

// Writes the UTF-8 form of a code point at `out`, which must have room for four bytes.
constexpr char* putUtf8(char32_t cp, char* out) {
  if (cp < 0x80) {
    *out++ = static_cast<char>(cp);
  } else if (cp < 0x800) {
    *out++ = static_cast<char>(0xC0 | (cp >> 6));
    *out++ = static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    *out++ = static_cast<char>(0xE0 | (cp >> 12));
    *out++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    *out++ = static_cast<char>(0xF0 | (cp >> 18));
    *out++ = static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    *out++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (cp & 0x3F));
  }
  return out;
}

bool isHighSurrogate(char32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool isLowSurrogate(char32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

template <class Emit>
void forEachLine(std::string_view bytes, Emit&& emit) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  const char* p = bytes.data();
  const char* const end = p + bytes.size();
  while (p < end) {
    const auto* lf = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
    if (!lf) {
      emit(std::string_view(p, static_cast<std::size_t>(end - p)));
      return;
    }
    const char* stop = (lf > p && lf[-1] == '\r') ? lf - 1 : lf;
    emit(std::string_view(p, static_cast<std::size_t>(stop - p)));
    p = lf + 1;
  }
}

// Counting first lets the vector grow once; the count is cheap next to the copies of the lines.
std::size_t lineCountBound(std::string_view bytes) {
  return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
}

// UTF-16 units behind the byte order mark, in the byte order that the mark gives.
ByteBuffer utf16ToUtf8(const unsigned char* p, std::size_t units, bool bigEndian) {
  ByteBuffer out;
  // Three bytes per unit at most: a pair of two units takes four.
  out.data = std::make_unique_for_overwrite<char[]>(units * 3 + 1);
  char* w = out.data.get();
  auto unit = [&](std::size_t i) -> char32_t {
    const unsigned char a = p[2 * i];
    const unsigned char b = p[2 * i + 1];
    return bigEndian ? static_cast<char32_t>(a << 8 | b) : static_cast<char32_t>(b << 8 | a);
  };
  for (std::size_t i = 0; i < units; ++i) {
    char32_t u = unit(i);
    if (u < 0x80) {
      *w++ = static_cast<char>(u);
      continue;
    }
    if (isHighSurrogate(u) && i + 1 < units && isLowSurrogate(unit(i + 1))) {
      u = 0x10000 + ((u - 0xD800) << 10) + (unit(i + 1) - 0xDC00);
      ++i;
    } else if (isHighSurrogate(u) || isLowSurrogate(u)) {
      u = kReplacement;
    }
    w = putUtf8(u, w);
  }
  out.size = static_cast<std::size_t>(w - out.data.get());
  return out;
}

// Windows-1252 at 80..9F; zero marks the five bytes without a character.
constexpr std::array<char16_t, 32> kCp1252High = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool isUndefinedCp1252(char ch) {
  const auto c = static_cast<unsigned char>(ch);
  return c >= 0x80 && c < 0xA0 && kCp1252High[c - 0x80] == 0;
}

// The UTF-8 form of each byte from 80 up, so that converting is a copy per byte.
// The bytes without a character keep their number, as Windows maps them when not rejecting them.
struct Utf8Form {
  std::uint8_t length;
  std::array<char, 3> bytes;
};
constexpr std::array<Utf8Form, 128> kCp1252Utf8 = [] {
  std::array<Utf8Form, 128> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    char32_t cp = static_cast<char32_t>(0x80 + i);
    if (i < kCp1252High.size() && kCp1252High[i] != 0) cp = kCp1252High[i];
    std::array<char, 4> buffer{};
    const char* end = putUtf8(cp, buffer.data());
    table[i].length = static_cast<std::uint8_t>(end - buffer.data());
    for (std::size_t k = 0; k < 3; ++k) table[i].bytes[k] = buffer[k];
  }
  return table;
}();

// Writes the UTF-8 form of `text` at `out`, which must have room for three bytes per byte.
char* putCp1252AsUtf8(std::string_view text, char* out) {
  for (char ch : text) {
    const auto c = static_cast<unsigned char>(ch);
    if (c < 0x80) {
      *out++ = ch;
      continue;
    }
    const Utf8Form& form = kCp1252Utf8[c - 0x80];
    std::memcpy(out, form.bytes.data(), form.bytes.size());
    out += form.length;
  }
  return out;
}

// One attempt of the conversion; nothing when `rejectUndefined` meets a byte without a character.
std::optional<std::string> cp1252ToUtf8(std::string_view text, bool rejectUndefined) {
  if (rejectUndefined && std::any_of(text.begin(), text.end(), isUndefinedCp1252)) return std::nullopt;
  std::string out(3 * text.size(), '\0');
  out.resize(static_cast<std::size_t>(putCp1252AsUtf8(text, out.data()) - out.data()));
  return out;
}

[[noreturn]] void throwInvalidUtf8() { throw std::runtime_error("utf8_to_wide: invalid UTF-8"); }

// One code point from strict UTF-8; advances `p`.
char32_t decodeUtf8(const unsigned char*& p, const unsigned char* end) {
  const unsigned char c = *p++;
  if (c < 0x80) return c;
  std::size_t follow = 0;
  char32_t cp = 0;
  char32_t least = 0;
  if (c >= 0xC2 && c <= 0xDF) {
    follow = 1, cp = c & 0x1Fu, least = 0x80;
  } else if ((c & 0xF0) == 0xE0) {
    follow = 2, cp = c & 0x0Fu, least = 0x800;
  } else if (c >= 0xF0 && c <= 0xF4) {
    follow = 3, cp = c & 0x07u, least = 0x10000;
  } else {
    throwInvalidUtf8();
  }
  if (static_cast<std::size_t>(end - p) < follow) throwInvalidUtf8();
  for (std::size_t k = 0; k < follow; ++k) {
    if (!isContinuation(*p)) throwInvalidUtf8();
    cp = cp << 6 | (*p++ & 0x3Fu);
  }
  if (cp < least || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) throwInvalidUtf8();
  return cp;
}

}  // namespace

TextEncoding gf_detectEncoding(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in.is_open()) return TextEncoding::Unopenable;
  std::array<unsigned char, kUtf8TestLength> head{};
  in.read(reinterpret_cast<char*>(head.data()), static_cast<std::streamsize>(head.size()));
  if (in.bad()) return TextEncoding::Unopenable;
  const auto n = static_cast<std::size_t>(in.gcount());
  const unsigned char* b = head.data();

  if (n >= 3 && b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF) return TextEncoding::Utf8Bom;
  if (n >= 2) {
    const bool markLe = b[0] == 0xFF && b[1] == 0xFE;
    const bool markBe = b[0] == 0xFE && b[1] == 0xFF;
    if (markLe) return TextEncoding::Utf16Le;
    // Without a mark, ASCII text in UTF-16 shows its zero bytes.
    if (!markBe && b[1] == 0 && (n < 4 || b[3] == 0)) return TextEncoding::Utf16Le;
    if (markBe) return TextEncoding::Utf16Be;
    if (b[0] == 0 && (n < 4 || b[2] == 0)) return TextEncoding::Utf16Be;
  }
  return passesUtf8Test(b, n) ? TextEncoding::Utf8 : TextEncoding::Ansi;
}

bool gf_readLines(TextEncoding encoding, const fs::path& file, std::vector<std::string>& lines) {
  lines.clear();
  std::ifstream in(file, std::ios::binary);
  if (!in.is_open()) return false;
  if (encoding < TextEncoding::Ansi || encoding > TextEncoding::Utf8)
    throw std::runtime_error(
        fmt::format("file {} has unknown charset: {}", file.string(), static_cast<std::int32_t>(encoding)));
  ByteBuffer bytes;
  if (!readRest(in, file, bytes)) return false;

  switch (encoding) {
    case TextEncoding::Utf16Le:
    case TextEncoding::Utf16Be: {
      const auto* p = reinterpret_cast<const unsigned char*>(bytes.data.get());
      const std::size_t n = bytes.size;
      if (n < 2 || n % 2 != 0) return true;
      const bool markLe = p[0] == 0xFF && p[1] == 0xFE;
      const bool markBe = p[0] == 0xFE && p[1] == 0xFF;
      if (!markLe && !markBe) return true;
      const ByteBuffer text = utf16ToUtf8(p + 2, (n - 2) / 2, markBe);
      gf_splitLines(text.view(), lines);
      return true;
    }
    case TextEncoding::Ansi: {
      // Each byte converts on its own and line ends stay as they are, so converting the whole text
      // before splitting gives the lines of gf_ansiToUtf8 line by line, without a string per line
      // in between. A leading UTF-8 mark goes first, as the split of the raw bytes drops it.
      std::string_view raw = bytes.view();
      if (raw.starts_with("\xEF\xBB\xBF")) raw.remove_prefix(3);
      ByteBuffer text;
      text.data = std::make_unique_for_overwrite<char[]>(3 * raw.size() + 1);
      text.size = static_cast<std::size_t>(putCp1252AsUtf8(raw, text.data.get()) - text.data.get());
      gf_splitLines(text.view(), lines);
      return true;
    }
    default:
      gf_splitLines(bytes.view(), lines);
      return true;
  }
}

void gf_splitLines(std::string_view bytes, std::vector<std::string>& lines) {
  lines.clear();
  lines.reserve(lineCountBound(bytes));
  forEachLine(bytes, [&](std::string_view line) { lines.emplace_back(line); });
}

std::string gf_ansiToUtf8(std::string_view text) {
  if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
    return std::string(text);
  // As through MultiByteToWideChar: first rejecting bytes without a character, then without that flag.
  if (auto strict = cp1252ToUtf8(text, true)) return std::move(*strict);
  if (auto lenient = cp1252ToUtf8(text, false)) return std::move(*lenient);
  return {};
}

std::wstring utf8_to_wide(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  const auto* p = reinterpret_cast<const unsigned char*>(text.data());
  const auto* const end = p + text.size();
  while (p < end) {
    const char32_t cp = decodeUtf8(p, end);
    if constexpr (sizeof(wchar_t) == 2) {
      if (cp >= 0x10000) {
        out.push_back(static_cast<wchar_t>(0xD800 + ((cp - 0x10000) >> 10)));
        out.push_back(static_cast<wchar_t>(0xDC00 + ((cp - 0x10000) & 0x3FF)));
        continue;
      }
    }
    out.push_back(static_cast<wchar_t>(cp));
  }
  return out;
}

std::string wide_to_utf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  char buffer[4];
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto cp = static_cast<char32_t>(text[i]);
    if (isHighSurrogate(cp) && i + 1 < text.size() && isLowSurrogate(static_cast<char32_t>(text[i + 1]))) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
      ++i;
    } else if (isHighSurrogate(cp) || isLowSurrogate(cp) || cp > 0x10FFFF) {
      cp = kReplacement;
    }
    out.append(buffer, putUtf8(cp, buffer));
  }
  return out;
}

}  // namespace orv
