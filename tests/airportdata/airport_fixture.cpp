#include "airport_fixture.h"

#include <fmt/format.h>

#include "data_file_encrypt.h"

namespace fs = std::filesystem;

namespace orv::test {

std::string airportXml(std::string_view parameters, std::string_view parkpositions, std::string_view version,
                       std::string_view simInfo) {
  const std::string sim = simInfo.empty() ? std::string() : fmt::format(R"(<info name="sim" value="{}"/>)", simInfo);
  return fmt::format(R"(<?xml version="1.0"?>
<root>
  <meta><info name="author" value="Orvane"/><info name="version" value="{}"/><info name="copyright" value="test"/>{}</meta>
  <parameters>{}</parameters>
  <parkpositions>{}</parkpositions>
</root>
)",
                     version, sim, parameters, parkpositions);
}

std::string parkposXml(std::string_view id, double latitude, double longitude, double radiusMetres,
                       std::string_view extra, std::string_view inner) {
  return fmt::format(
      R"(<parkpos id="{}" latitude="{:.6f}" longitude="{:.6f}" heading="90.0" radius="{:.1f}" {}>{}</parkpos>)", id,
      latitude, longitude, radiusMetres, extra, inner);
}

std::string stockParameters(std::string_view icao, std::string_view name, int altitude) {
  return fmt::format(R"(<parameter name="icao" value="{}"/><parameter name="airport_name" value="{}"/>)"
                     R"(<parameter name="publisher" value="stock"/><parameter name="altitude" value="{}"/>)",
                     icao, name, altitude);
}

void writeCatalogue(std::string_view apElements) {
  writeEncryptedCatalogue(fmt::format("<?xml version=\"1.0\"?>\n<root><airports>{}</airports></root>\n", apElements));
}

void writeEncryptedCatalogue(std::string_view plain) {
  writeFile(fs::path("input") / "airports.enc", gf_encryptBytes(gf_dataKey(), plain));
}

fs::path seedFolder() { return fs::path(__FILE__).parent_path().parent_path() / "data" / "airports"; }

AirportTest::AirportTest() : previousDir(fs::current_path()) {
  fs::current_path(work.path());
  for (const char* folder : {"airports/my_thirdparty", "airports/my_simaddon", "airports/learned/stock",
                             "airports/learned/simaddon", "airports/learned/thirdparty", "input"})
    fs::create_directories(folder);
}

AirportTest::~AirportTest() { fs::current_path(previousDir); }

void writeBelow(const fs::path& root, const fs::path& relative, std::string_view text) {
  fs::create_directories((root / relative).parent_path());
  writeFile(root / relative, text);
}

void AirportTest::put(const fs::path& relative, std::string_view text) const {
  writeBelow(work.path(), relative, text);
}

bool AirportTest::has(const fs::path& relative) const { return fs::exists(work.path() / relative); }

}  // namespace orv::test
