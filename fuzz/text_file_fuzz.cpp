// A user's text file in any encoding: the input is the file. It is read in the encoding that
// the detection finds and in every other one, and each line goes through the text helpers
// that readers of users' files apply to lines: wide text, half hours, fixed codes.
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "foundation/fixed_code.h"
#include "foundation/half_hours.h"
#include "foundation/text_encoding.h"
#include "fuzz_support.h"

using namespace orv;
namespace fs = std::filesystem;

namespace {

void checkLine(const std::string& line, bool mustBeUtf8) {
  try {
    const std::wstring wide = utf8_to_wide(line);
    fuzz::check(wide_to_utf8(wide) == line, "valid UTF-8 comes back from wide text unchanged");
  } catch (const std::runtime_error&) {
    fuzz::check(!mustBeUtf8, "ANSI and UTF-16 files read as valid UTF-8");
  }

  const HalfHours hours = gf_hours2bitset(line);
  if (const auto text = gf_bitset2hours(hours)) fuzz::check(gf_hours2bitset(*text) == hours, "a range reads back");
  fuzz::check(gf_hours2bitset(gf_bitset2list(hours)) == hours, "a list of half hours reads back");

  try {
    const FixedCode<3> code(line);
    fuzz::check(code.view().size() == 3, "a three-letter code holds three characters");
  } catch (const std::invalid_argument&) {}
  try {
    const FixedCode<4> code(line);
    fuzz::check(FixedCode<4>(code.view()) == code, "a four-letter code reads back");
  } catch (const std::invalid_argument&) {}
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path file = fuzz::scratchFolder() / "text.txt";
  fuzz::writeInput(file, fuzz::textOf(data, size));
  const TextEncoding detected = gf_detectEncoding(file);
  fuzz::check(detected >= TextEncoding::Ansi && detected <= TextEncoding::Utf8, "a file that is there has an encoding");

  std::vector<std::string> lines;
  for (const TextEncoding encoding : {detected, TextEncoding::Ansi, TextEncoding::Utf16Le, TextEncoding::Utf16Be,
                                      TextEncoding::Utf8Bom, TextEncoding::Utf8}) {
    fuzz::check(gf_readLines(encoding, file, lines), "a file that is there reads");
    const bool converted =
        encoding == TextEncoding::Ansi || encoding == TextEncoding::Utf16Le || encoding == TextEncoding::Utf16Be;
    for (const std::string& line : lines) checkLine(line, converted);
  }

  std::vector<std::string> split;
  gf_splitLines(fuzz::textOf(data, size), split);
  gf_readLines(TextEncoding::Utf8, file, lines);
  fuzz::check(split == lines, "a file reads as its bytes split");
  return 0;
}
