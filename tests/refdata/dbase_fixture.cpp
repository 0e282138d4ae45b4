#include "dbase_fixture.h"

#include "data_file_encrypt.h"
#include "test_support.h"

namespace orv::test {

DbaseXml::DbaseXml() {
  sections = {
      {"aircrafts", R"(<aircraft types="B738,A320"/><aircraft types=" A321 ,,C172"/>)"},
      {"cargo_types", R"(<cargo_type types="B74F,A320"/>)"},
      {"heavy", R"(<hvy types="B744"/>)"},
      {"large", R"(<lar types="A320,A321,B738"/>)"},
      {"buzjet", R"(<bzj types="C56X"/>)"},
      {"high_performance", R"(<hpf types="F16"/>)"},
      {"rotorcraft", R"(<rot types="EC35"/>)"},
      {"ICAO_airlines", R"(<ICAO codes="KLM,DLH"/><ICAO codes="ZZZ,PVT"/>)"},
      {"cargo_operators", R"(<ICAO codes="FDX"/>)"},
      {"simaddons20", R"(<simaddon20 arpts="EHAM,KLAX"/>)"},
      {"simaddons24", R"(<simaddon24 arpts="EHAM"/>)"},
      {"dbase", R"(<d r="PH-BXA" a="KLM" m="B738"/><d r="D-AIBA" a="DLH" m="A320"/>)"},
  };
}

std::string DbaseXml::text() const {
  std::string xml = "<?xml version=\"1.0\"?>\n<root>\n";
  for (const auto& [name, inner] : sections) xml += "<" + name + ">" + inner + "</" + name + ">\n";
  return xml + "</root>\n";
}

void writeEncrypted(const std::filesystem::path& encPath, std::string_view plain) {
  writeFile(encPath, gf_encryptBytes(gf_dataKey(), plain));
}

}  // namespace orv::test
