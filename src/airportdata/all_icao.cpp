#include "airportdata/all_icao.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "foundation/log.h"
#include "foundation/text_utils.h"
#include "foundation/user_error.h"

namespace orv {

std::unordered_set<FixedCode<4>> gAllIcao;

namespace {
constexpr const char* kFile = "input/ICAO_airports.txt";

void addCodes(std::string_view line) {
  while (!line.empty()) {
    const auto comma = line.find(',');
    const std::string field = gf_trim(line.substr(0, comma));
    line = comma == std::string_view::npos ? std::string_view() : line.substr(comma + 1);
    if (field.empty()) continue;
    try {
      gAllIcao.insert(FixedCode<4>(field));
    } catch (const std::invalid_argument& e) {
      // One damaged code costs only itself.
      gf_log("{}: {}", kFile, e.what());
    }
  }
}
}  // namespace

void readAllIcao() {
  gAllIcao.clear();
  std::ifstream in(kFile);
  if (!in) throw UserErrorException(user_error::kFileMissing, user_error::kFileMissingText, kFile);
  for (std::string line; std::getline(in, line);)
    if (!gf_trim(line).empty()) addCodes(line);
  gf_log("{} ICAO codes of airports read", gAllIcao.size());
}

}  // namespace orv
