// The catalogue of supported airports (input/airports.enc) and the list of all airport codes.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "airport_fixture.h"
#include "airportdata/airport_catalogue.h"
#include "airportdata/all_icao.h"
#include "foundation/user_error.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace orv::test {
namespace {

class AirportCatalogueTest : public AirportTest {
 protected:
  // The error of reading the catalogue, or 0 and empty when it was read.
  std::pair<int, std::string> readFailure() {
    try {
      gf_readAirports();
    } catch (const UserErrorException& e) {
      return {e.code(), e.text()};
    }
    return {0, {}};
  }
  bool logged(const std::string& text) const { return log.text().find(text) != std::string::npos; }
};

TEST_F(AirportCatalogueTest, GoodRecordsAreKeptSortedAndBadOnesPassedOver) {
  writeCatalogue(R"(<ap c="LFPG" i="CDG" la="49.0097" lo="2.5478" a="392" s="1"/>)"
                 R"(<ap c="eham" la="52.3086" lo="4.7639" a="-11" s="2"/>)"
                 R"(<ap c="EDDF" i="FRA" lo="8.57" a="364" s="0"/>)"
                 R"(<ap c="EGLL" i="LHR" la="51.47" lo="-0.46" s="0"/>)"
                 R"(<ap c="KJFK" i="JFK" la="40.64" lo="-73.78" a="13"/>)"
                 R"(<ap c="LOWW" i="V!E" la="48.11" lo="16.57" a="600" s="0"/>)");
  EXPECT_TRUE(gf_readAirports());
  ASSERT_EQ(gRtAirports.size(), 2u);
  EXPECT_EQ(gRtAirports[0].icao.view(), "EHAM");
  EXPECT_TRUE(gRtAirports[0].iata.empty()) << "an ap without i is kept with an empty IATA code";
  EXPECT_FLOAT_EQ(gRtAirports[0].altitude, -11.0f);
  EXPECT_EQ(gRtAirports[0].stands, 2);
  EXPECT_EQ(gRtAirports[1].icao.view(), "LFPG");
  EXPECT_EQ(gRtAirports[1].iata.view(), "CDG");
  EXPECT_DOUBLE_EQ(gRtAirports[1].latitude, 49.0097);
  EXPECT_TRUE(isRtAirport("LFPG"));
  EXPECT_TRUE(isRtAirport("eham"));
  EXPECT_FALSE(isRtAirport("EDDF"));
  EXPECT_FALSE(isRtAirport("LFP"));
  EXPECT_EQ(findRtAirport("LFPG"), &gRtAirports[1]);
  EXPECT_EQ(findRtAirport("KJFK"), nullptr);
  EXPECT_TRUE(logged("Missing latLons for airport 'EDDF'"));
  EXPECT_TRUE(logged("Missing alt for airport 'EGLL'"));
  EXPECT_TRUE(logged("Missing stands for airport 'KJFK'"));
  EXPECT_TRUE(logged("Error storing airport 'LOWW' 'V!E': 'V!E' FixedCode: invalid string (length/charset)"));
  EXPECT_TRUE(logged("    2 airports read"));
  EXPECT_FALSE(fs::exists("input/airports.xml")) << "the plain copy lives only while it is read";

  // Once read, the catalogue stays for the process.
  fs::remove("input/airports.enc");
  EXPECT_TRUE(gf_readAirports());
  EXPECT_EQ(gRtAirports.size(), 2u);
}

TEST_F(AirportCatalogueTest, ACatalogueThatCannotBeReadStopsTheStart) {
  writeCatalogue(R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="1"/><ap c="EH-M" la="1" lo="1" a="1" s="1"/>)");
  EXPECT_EQ(readFailure(), std::make_pair(88, std::string("'EH-M' FixedCode: invalid string (length/charset)")));
  EXPECT_TRUE(gRtAirports.empty());
  EXPECT_FALSE(fs::exists("input/airports.xml"));

  writeEncryptedCatalogue("<?xml version=\"1.0\"?><root><ports/></root>");
  EXPECT_EQ(readFailure(), std::make_pair(88, "Missing <airports> root in: " + shown("input/airports.xml")));
  writeEncryptedCatalogue("<root><airports>");
  const auto [code, text] = readFailure();
  EXPECT_EQ(code, 88);
  EXPECT_EQ(text.rfind(shown("input/airports.xml") + " not loaded: ", 0), 0u) << text;
  EXPECT_FALSE(fs::exists("input/airports.xml"));
  put("input/airports.enc", "not encrypted at all, and too short");
  EXPECT_EQ(readFailure().first, 88);
  fs::remove("input/airports.enc");
  EXPECT_EQ(readFailure().first, 88);
  EXPECT_FALSE(fs::exists("input/airports.xml"));
}

TEST_F(AirportCatalogueTest, AllAirportCodesComeFromOnePlainList) {
  try {
    readAllIcao();
    FAIL() << "no error without the file";
  } catch (const UserErrorException& e) {
    EXPECT_EQ(e.code(), 522);
    EXPECT_EQ(e.text(), "File 'input/ICAO_airports.txt' is missing?");
  }
  put("input/ICAO_airports.txt", "EHAM,EDDF\n\n LFPG , KJFK\r\nXX-1,abcd,,\n");
  readAllIcao();
  EXPECT_EQ(gAllIcao.size(), 5u);
  for (const char* code : {"EHAM", "EDDF", "LFPG", "KJFK", "ABCD"})
    EXPECT_TRUE(gAllIcao.contains(FixedCode<4>(code))) << code;
  EXPECT_TRUE(logged("5 ICAO codes of airports read"));
  EXPECT_TRUE(logged("'XX-1' FixedCode: invalid string"));
}

}  // namespace
}  // namespace orv::test
