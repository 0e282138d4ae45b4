#pragma once
// Small dbase documents for the tests: every required section with a little content, any
// section replaceable or removable, written encrypted with the program's key.
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace orv::test {

struct DbaseXml {
  // Section name to the inner XML of that section; a missing name means a missing section.
  std::map<std::string, std::string> sections;
  DbaseXml();
  std::string text() const;
};

// The whole encrypted file for a plain text.
void writeEncrypted(const std::filesystem::path& encPath, std::string_view plain);

}  // namespace orv::test
