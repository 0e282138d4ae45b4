// Archived airport files from a download site: the test serves one on loopback, on a free port.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "airport_fixture.h"
#include "airportdata/airport_catalogue.h"
#include "airportdata/airport_download.h"
#include "airportdata/airport_file_load.h"
#include "airportdata/airport_lookup.h"
#include "airportdata/closest_airport.h"
#include "download_site.h"
#include "foundation/sim_choice.h"
#include "refdata/download_site.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace orv::test {
namespace {

// Metres north of a latitude, on the program's sphere.
double north(double latitude, double nm) { return latitude + nm / 3437.7467707849 * 57.29577951308232; }

class AirportDownloadTest : public AirportTest {
 protected:
  AirportDownloadTest() {
    const std::string stock = readFile(seedFolder() / "stock_small.xml");
    site.put("downloads/MSFS/archive/stock/EHAM.xml", stock);
    std::string for2024 = stock;
    for2024.replace(for2024.find("Amsterdam Airport Schiphol"), 26, "Schiphol for MSFS 2024");
    site.put("downloads/MSFS2024/archive/stock/EHAM.xml", for2024);
    server = std::make_unique<DownloadSite>(site.work.path());
    // Named without its last "/", which the setting adds.
    gf_setDownloadSite(server->url().substr(0, server->url().size() - 1));
    writeCatalogue(
        R"(<ap c="EHAM" la="52.3" lo="4.76" a="-11" s="1"/><ap c="LFPG" la="49.0" lo="2.55" a="392" s="1"/>)");
    gf_readAirports();
    airport.icao = "EHAM";
  }

  std::string load(const std::string& xmlName) { return gf_readApf(xmlName, airport, factors, stands); }

  // The folder the site serves.
  struct SiteFolder {
    void put(const fs::path& relative, std::string_view text) const { writeBelow(work.path(), relative, text); }
    TempDir work;
  };
  SiteFolder site;
  std::unique_ptr<DownloadSite> server;
  ApfAirport airport;
  QualityFactors factors;
  std::vector<Stand> stands;
};

TEST_F(AirportDownloadTest, AStockFileIsFetchedForTheSelectedSimulator) {
  const std::string xmlName = locateAirportFile("EHAM");
  ASSERT_EQ(xmlName, "archive/stock/EHAM.xml");
  EXPECT_EQ(load(xmlName), "");
  EXPECT_EQ(stands.size(), 5u);
  EXPECT_EQ(airport.airportName, "Amsterdam Airport Schiphol");
  EXPECT_TRUE(has("airports/park_airport.xml"));
  EXPECT_TRUE(log.text().find("Airport file read from 'archive/stock/EHAM.xml' for Amsterdam") != std::string::npos);

  gv_isMsfs2020 = false;
  EXPECT_EQ(gf_airportDownloadBase(), server->url() + "downloads/MSFS2024/");
  EXPECT_EQ(load(xmlName), "");
  EXPECT_EQ(airport.airportName, "Schiphol for MSFS 2024");
}

TEST_F(AirportDownloadTest, AFailedDownloadLeavesNoFileBehind) {
  put("airports/park_airport.xml", readFile(seedFolder() / "stock_small.xml"));
  airport.icao = "LFPG";
  const std::string url = server->url() + "downloads/MSFS/archive/stock/LFPG.xml";
  EXPECT_EQ(load("archive/stock/LFPG.xml"), "failed to download: '" + url + "'");
  EXPECT_FALSE(has("airports/park_airport.xml")) << "the stale file of an earlier airport is gone";
  EXPECT_FALSE(has("airports/park_airport.xml.part"));
  EXPECT_TRUE(log.text().find("failed to download: '" + url + "'") != std::string::npos);
  EXPECT_TRUE(stands.empty());

  // A site that has gone away.
  const std::string base = server->url();
  server.reset();
  airport.icao = "EHAM";
  EXPECT_EQ(load("archive/stock/EHAM.xml"), "failed to download: '" + base + "downloads/MSFS/archive/stock/EHAM.xml'");
  EXPECT_FALSE(has("airports/park_airport.xml"));
  EXPECT_TRUE(log.text().find("Download error: '") != std::string::npos);
}

TEST_F(AirportDownloadTest, TheClosestAirportIsTheOneWithTheNearestStand) {
  // BBBB is nearer by its reference point, AAAA (1 nm further north) by its stand, where the user
  // stands. The catalogue walk meets AAAA first, so it becomes the neighbour of BBBB.
  const double user = 50.0;
  const double aaaa = north(user, 0.6), bbbb = north(user, -0.4);
  writeCatalogue(fmt::format(
      R"(<ap c="AAAA" la="{:.9f}" lo="8.0" a="0" s="0"/><ap c="BBBB" la="{:.9f}" lo="8.0" a="0" s="1"/>)", aaaa, bbbb));
  lf_clearAirportCatalogue();
  gf_readAirports();
  put("airports/my_thirdparty/AAAA.xml", airportXml(stockParameters("AAAA"), parkposXml("S1", user, 8.0)));
  site.put("downloads/MSFS/archive/stock/BBBB.xml",
           airportXml(stockParameters("BBBB"), parkposXml("B9", north(user, -0.3), 8.0)));

  const RtAirport* found = closestAirport(user, 8.0);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->icao.view(), "AAAA");
  EXPECT_TRUE(log.text().find("Airport BBBB is closest, neighbour is AAAA") != std::string::npos);
  EXPECT_TRUE(
      log.text().find("Airport BBBB is closest, but stand S1 at neighbouring airport AAAA is closer at 0 meters ...") !=
      std::string::npos)
      << log.text();
  EXPECT_FALSE(has("airports/airport.xml")) << "the downloaded copy lives only for the question";

  // A neighbour whose file cannot be read counts as 100 nm and loses; so does the closest one,
  // and then the closest stays.
  fs::remove("airports/my_thirdparty/AAAA.xml");
  EXPECT_EQ(closestAirport(user, 8.0)->icao.view(), "BBBB");
  fs::remove(site.work / "downloads/MSFS/archive/stock/BBBB.xml");
  EXPECT_EQ(closestAirport(user, 8.0)->icao.view(), "BBBB");
  std::string stand = "none";
  EXPECT_EQ(gf_readDestApfForClosestStand("BBBB", user, 8.0, stand), 100.0);
  EXPECT_EQ(stand, "none");
}

TEST_F(AirportDownloadTest, OnlyAnAirportWithinFiveMilesIsClosest) {
  writeCatalogue(fmt::format(R"(<ap c="NEAR" la="{:.9f}" lo="8.0" a="0" s="0"/>)", north(50.0, 4.9)));
  lf_clearAirportCatalogue();
  gf_readAirports();
  ASSERT_NE(closestAirport(50.0, 8.0), nullptr);
  EXPECT_EQ(closestAirport(50.0, 8.0)->icao.view(), "NEAR");
  EXPECT_EQ(closestAirport(north(50.0, -0.2), 8.0), nullptr) << "5.1 nm away";
  EXPECT_FALSE(log.text().find("neighbour") != std::string::npos);
}

}  // namespace
}  // namespace orv::test
