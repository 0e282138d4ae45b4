// Airport files: the input is one file. It is loaded as the park airport's archived file
// (airports/my_thirdparty/FUZZ.xml), then as the learned file over a fixed archived file, as a
// visit to an airport does; the table it leaves is written as a learned file and read back.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "airportdata/airport_file.h"
#include "airportdata/airport_file_load.h"
#include "airportdata/airport_settings.h"
#include "airportdata/park_airport_file.h"
#include "airportdata/quality_factors.h"
#include "airportdata/stand_reader.h"
#include "foundation/user_error.h"
#include "fuzz_support.h"
#include "refdata/code_tables.h"

using namespace orv;
namespace fs = std::filesystem;

namespace {

constexpr const char* kArchived = R"(<?xml version="1.0"?>
<root>
  <meta><info name="copyright" value="fuzz"/><info name="sim" value="1"/><info name="version" value="12.5.4"/></meta>
  <parameters><parameter name="icao" value="FUZZ"/><parameter name="publisher" value="stock"/><parameter name="altitude" value="10"/></parameters>
  <parkpositions>
    <parkpos id="A1" latitude="52.300000" longitude="4.760000" heading="90.0" radius="24.0" type="9"><opt reg="PH-BXA" airl="KLM" type="B738" soft="1" day="1" hh="14:17" cs="KLM1:KLM2"/></parkpos>
    <parkpos id="A2" latitude="52.300300" longitude="4.760000" heading="90.0" radius="24.0" type="9"/>
  </parkpositions>
</root>
)";

// What a loaded table promises whatever the file said: numbers 1, 2, 3 ... in table order,
// distinct ids, adjacency among existing other stands, options a reader accepts.
void checkTable(const std::vector<Stand>& stands, const QualityFactors& factors) {
  std::set<std::string> ids;
  for (std::size_t i = 0; i < stands.size(); ++i) {
    const Stand& stand = stands[i];
    fuzz::check(stand.number == i + 1, "stands are numbered in table order");
    fuzz::check(!stand.id.empty() && ids.insert(stand.id).second, "a stand has an id of its own");
    for (const std::uint32_t other : stand.adjacent)
      fuzz::check(other >= 1 && other <= stands.size() && other != stand.number, "adjacent to another stand");
    for (const StandOpt& option : stand.opts) {
      fuzz::check(option.day >= 1 && option.day <= 7, "an option has a weekday");
      fuzz::check(option.hours != 0 && option.hours < (std::uint64_t{1} << 48), "an option has half hours of a day");
    }
  }
  fuzz::check(factors.real >= -1 && factors.real <= 100 && factors.soft >= -1 && factors.soft <= 100,
              "quality factors within their scale");
}

std::vector<Stand> load(const char* xmlName) {
  ApfAirport airport;
  airport.icao = "FUZZ";
  QualityFactors factors;
  std::vector<Stand> stands;
  try {
    gf_readApf(xmlName, airport, factors, stands);
  } catch (const UserErrorException&) {
    return {};  // a stand without id, one twice, a file without altitude: the user is told
  }
  checkTable(stands, factors);
  lf_restoreSettingsBeforeAirport();
  return stands;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::InScratch inScratch;
  static const bool ready = [] {
    setenv("ORVANE_APPDATA", (fuzz::scratchFolder() / "appdata").c_str(), 1);
    for (const char* folder : {"airports/my_thirdparty", "airports/stock", "airports/learned/stock", "appdata"})
      fs::create_directories(folder);
    fuzz::writeInput("airports/stock/FUZZ.xml", kArchived);
    lf_rememberSettingsBeforeAirport();
    return true;
  }();
  (void)ready;
  const std::string_view text = fuzz::textOf(data, size);

  fuzz::writeInput("airports/my_thirdparty/FUZZ.xml", text);
  std::vector<Stand> archived = load("airports\\my_thirdparty\\FUZZ.xml");

  // As a learned file a bad one never stops the load: unless it is handmade, and so replaces
  // them, the archived stands stay at least.
  fuzz::writeInput("airports/learned/stock/FUZZ.xml", text);
  const std::vector<Stand> learned = load("airports\\stock\\FUZZ.xml");
  fuzz::check(gv_handmade || learned.size() >= 2, "a learned file keeps the archived stands");
  std::error_code ec;
  fs::remove("airports/learned/stock/FUZZ0.xml", ec);

  // The table of the archived load, written whole, reads back with the same stands, but for
  // those so near 0/0 that six decimals make them no stand.
  gv_handmade = true;
  AirportFile file;
  file.stands = std::move(archived);
  fuzz::check(writeAirportFile(file, "written.xml", ApfMode::Learned, 1), "a table can be written");
  std::ifstream written("written.xml", std::ios::binary);
  std::vector<Stand> again;
  try {
    again = gf_standsFromText(std::string(std::istreambuf_iterator<char>(written), {}));
  } catch (const std::exception& e) {
    fuzz::failCheck(std::string("a written file reads back: ") + e.what());
  }
  fuzz::check(again.size() <= file.stands.size(), "a written file adds no stands");
  for (std::size_t i = 0, k = 0; i < again.size(); ++i, ++k) {
    while (k < file.stands.size() && file.stands[k].id != again[i].id) ++k;
    fuzz::check(k < file.stands.size(), "a written file keeps its stands in order");
  }

  lf_clearParkAirportFile();
  gf_resetCodeTables();
  return 0;
}
