// Which file counts for an airport, and where its learned file lies.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "airport_fixture.h"
#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_file_load.h"
#include "airportdata/airport_lookup.h"
#include "airportdata/airport_paths.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace orv::test {
namespace {

class AirportLookupTest : public AirportTest {
 protected:
  void catalogueWith(const std::string& apElements) {
    writeCatalogue(apElements);
    gf_readAirports();
  }
};

TEST_F(AirportLookupTest, LocalSourcesComeBeforeTheStockFileInTheirOrder) {
  catalogueWith(R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="1"/><ap c="EDDF" la="50" lo="8.5" a="364" s="0"/>)");
  put("airports/my_thirdparty/EHAM.txt", "archive/thirdparty/Pub/EHAM.xml  \r\n");
  put("airports/my_thirdparty/EHAM.xml", "x");
  put("airports/my_simaddon/EHAM.txt", "archive/simaddon/EHAM.XML\n");
  put("airports/my_simaddon/EHAM.xml", "x");

  EXPECT_EQ(locateAirportFile("EHAM"), "archive/thirdparty/Pub/EHAM.xml");
  fs::remove("airports/my_thirdparty/EHAM.txt");
  EXPECT_EQ(locateAirportFile("EHAM"), "airports\\my_thirdparty\\EHAM.xml");
  fs::remove("airports/my_thirdparty/EHAM.xml");
  EXPECT_EQ(locateAirportFile("EHAM"), "archive/simaddon/EHAM.XML");
  fs::remove("airports/my_simaddon/EHAM.txt");
  EXPECT_EQ(locateAirportFile("EHAM"), "airports\\my_simaddon\\EHAM.xml");
  fs::remove("airports/my_simaddon/EHAM.xml");
  EXPECT_EQ(locateAirportFile("EHAM"), "archive/stock/EHAM.xml");
  // Stands level 0: the server holds no file; an airport outside the catalogue has none either.
  EXPECT_EQ(locateAirportFile("EDDF"), "");
  EXPECT_EQ(locateAirportFile("LFPG"), "");
}

TEST_F(AirportLookupTest, OnlyALinkToAnXmlFileCountsAsALink) {
  put("airports/my_thirdparty/EHAM.xml", "x");
  for (const char* line : {"", "\n", "xml", "archive/thirdparty/Pub/EHAM.txt", "  \t\n"}) {
    put("airports/my_thirdparty/EHAM.txt", line);
    EXPECT_EQ(locateAirportFile("EHAM"), "airports\\my_thirdparty\\EHAM.xml") << "link line '" << line << "'";
  }
  put("airports/my_thirdparty/EHAM.txt", "a.Xml\nsecond line.xml");
  EXPECT_EQ(locateAirportFile("EHAM"), "a.Xml");
}

TEST_F(AirportLookupTest, AnAirportHasAFileWhenAnySourceHoldsOne) {
  catalogueWith(R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="2"/><ap c="EDDF" la="50" lo="8.5" a="364" s="0"/>)");
  EXPECT_TRUE(airportFileExists("EHAM"));
  EXPECT_FALSE(airportFileExists("EDDF"));
  put("airports/my_simaddon/EDDF.txt", "not a link");
  EXPECT_TRUE(airportFileExists("EDDF")) << "any link file, valid or not";
  EXPECT_FALSE(airportFileExists("LOWW"));
  put("airports/my_thirdparty/LOWW.xml", "x");
  EXPECT_TRUE(airportFileExists("LOWW"));
}

TEST_F(AirportLookupTest, TheLearnedPathFollowsTheSourceOfTheFile) {
  EXPECT_EQ(learnedPathOf("archive/stock/EHAM.xml", "ignored"), "learned\\stock\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("archive\\simaddon\\EHAM.XML", ""), "learned\\simaddon\\EHAM.XML");
  EXPECT_EQ(learnedPathOf("archive\\thirdparty\\Some%20Pub\\EHAM.xml", ""), "learned\\thirdparty\\Some Pub\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("archive/thirdparty/%20Pub%20/v1/EHAM_v1.xml", ""), "learned\\thirdparty\\Pub\\EHAM_v1.xml");
  EXPECT_EQ(learnedPathOf("archive/thirdparty/%20%20/EHAM.xml", ""), "") << "no publisher";
  EXPECT_EQ(learnedPathOf("archive/thirdparty/EHAM.xml", ""), "") << "no folder behind the publisher";
  EXPECT_EQ(learnedPathOf("airports\\stock\\EHAM.xml", ""), "learned\\stock\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("airports\\my_simaddon\\EHAM.xml", ""), "learned\\simaddon\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("airports\\my_thirdparty\\EHAM.xml", " Big/Pub "), "learned\\thirdparty\\Big Pub\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("airports/my_thirdparty2024/EHAM.xml", "Pub%20X"), "learned\\thirdparty\\Pub X\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("airports\\my_thirdparty\\EHAM.xml", "   "), "");
  EXPECT_EQ(learnedPathOf("airports\\other\\EHAM.xml", ""), "learned\\other\\EHAM.xml");
  EXPECT_EQ(learnedPathOf("elsewhere\\EHAM.xml", ""), "");
  EXPECT_EQ(learnedPathOf("archive/stock/EHAM.txt", ""), "");
  EXPECT_EQ(learnedPathOf("", ""), "");
}

TEST_F(AirportLookupTest, AThirdPartyFileBeforeTheStockFileBringsItsPublishersLearnedFile) {
  catalogueWith(R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="1"/>)");
  const std::string parameters =
      R"(<parameter name="icao" value="EHAM"/><parameter name="publisher" value="Some Pub"/><parameter name="altitude" value="-11"/>)";
  put("airports/my_thirdparty/EHAM.xml", airportXml(parameters, parkposXml("T1", 52.3, 4.76, 30.0)));
  put("airports/learned/thirdparty/Some Pub/EHAM.xml",
      airportXml("", R"(<parkpos id="T1" radius_change="1" radius="12.0"/>)"));

  const std::string xmlName = locateAirportFile("EHAM");
  ASSERT_EQ(xmlName, "airports\\my_thirdparty\\EHAM.xml");
  ApfAirport airport;
  airport.icao = "EHAM";
  QualityFactors factors;
  std::vector<Stand> stands;
  EXPECT_EQ(gf_readApf(xmlName, airport, factors, stands), "");
  ASSERT_EQ(stands.size(), 1u);
  EXPECT_EQ(airport.publisher, "Some Pub");
  EXPECT_TRUE(stands[0].radiusChange);
  EXPECT_DOUBLE_EQ(stands[0].radius, 12.0 * kNmPerMetre);
}

}  // namespace
}  // namespace orv::test
