// The park airport list and the choice of the park airport as the user's aircraft moves.
#include <gtest/gtest.h>

#include <fmt/format.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "airport_fixture.h"
#include "airportdata/airport_catalogue.h"
#include "airportdata/park_airport_file.h"
#include "airportdata/stands.h"
#include "engine/engine_tables.h"
#include "engine/park_airport_site.h"
#include "engine/reserved_stand.h"
#include "engine/user_snapshot.h"
#include "foundation/message_area.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/status_values.h"
#include "parking/park_airport_sight.h"
#include "parking/park_airports.h"
#include "parking/parking_hooks.h"

namespace fs = std::filesystem;

namespace orv::test {
namespace {

// AAAA and BBBB lie 0.3 degrees of longitude apart on latitude 50: 11.57 nm.
constexpr double kLat = 50.0, kLonA = 8.0, kLonB = 8.3;
constexpr double kNmPerDegLon = 60.0 * 0.6427876096865394;  // cos 50 degrees

int gWaits = 0, gWaitEnds = 0, gFeedChanges = 0;

class ParkAirportTest : public AirportTest {
 protected:
  ParkAirportTest() {
    writeCatalogue(R"(<ap c="AAAA" la="50.0" lo="8.0" a="100" s="0"/><ap c="BBBB" la="50.0" lo="8.3" a="200" s="0"/>)"
                   R"(<ap c="CCCC" la="10.0" lo="10.0" a="0" s="0"/><ap c="DDDD" la="20.0" lo="20.0" a="0" s="0"/>)");
    gf_readAirports();
    gWaits = gWaitEnds = gFeedChanges = 0;
    gv_enterParkingWait.set([](bool) { ++gWaits; });
    gv_endParkingWait.set([] { ++gWaitEnds; });
    gv_parkAirportChanged.set([] { ++gFeedChanges; });
  }

  // An airport file with two stands 100 m apart east of the reference point.
  void putAirportFile(std::string_view icao, double lon, int altitude = 100) const {
    put(fmt::format("airports/my_thirdparty/{}.xml", icao),
        airportXml(stockParameters(icao, "Test Airport", altitude),
                   parkposXml("S1", kLat, lon + 0.01) + parkposXml("S2", kLat, lon + 0.01 + 100.0 / 1852 / kNmPerDegLon)));
  }

  static void userAt(double lat, double lon, bool onGround, double alt = 0) {
    gUserSnapshot.lat = lat;
    gUserSnapshot.lon = lon;
    gUserSnapshot.alt = alt;
    gv_userOnGround = onGround;
  }

  static std::string listFile() { return readFile(fs::path("airports") / "my_park_airports.txt"); }
};

TEST_F(ParkAirportTest, ListFileKeepsGoodLinesAndWarnsOfEachBadOne) {
  put("airports/my_park_airports.txt", "AAAA\n\n BBBB , B7 \naaaa\nCCCC,G4,x\nZZZZ\n");
  put("airports/my_thirdparty/DDDD.xml", "<root/>");
  put("airports/my_thirdparty/EEEE.xml", "<root/>");  // not in the catalogue
  put("airports/my_thirdparty/AAAA.xml", "<root/>");  // listed already

  EXPECT_FALSE(lf_readMyParkAirports());
  ASSERT_EQ(gParkAirports.size(), 3u);
  auto it = gParkAirports.begin();
  EXPECT_EQ(it->icao.view(), "AAAA");
  EXPECT_EQ(it->stand, "");
  ++it;
  EXPECT_EQ(it->icao.view(), "BBBB");
  EXPECT_EQ(it->stand, "B7");
  EXPECT_DOUBLE_EQ(it->longitude, kLonB);
  EXPECT_EQ((++it)->icao.view(), "DDDD");

  const std::string text = log.text();
  EXPECT_NE(text.find("airports\\my_park_airports.txt:5 wrong syntax, skipped"), std::string::npos) << text;
  EXPECT_NE(text.find("airports\\my_park_airports.txt:aaaa double, skipped"), std::string::npos);
  EXPECT_NE(text.find("airport ZZZZ is unknown"), std::string::npos);
  EXPECT_NE(text.find("\n    2 park airports read from 'airports\\my_park_airports.txt'"), std::string::npos);

  fs::remove("airports/my_park_airports.txt");
  EXPECT_TRUE(lf_readMyParkAirports());
  EXPECT_NE(log.text().find("airports\\my_park_airports.txt not found"), std::string::npos);
  EXPECT_EQ(gParkAirports.size(), 2u);  // the add-on airports alone
}

TEST_F(ParkAirportTest, OnTheGroundTheAirportUnderTheUserIsLoadedAndItsStandReserved) {
  putAirportFile("AAAA", kLonA);
  put("airports/my_park_airports.txt", "BBBB,B7\n");
  ASSERT_TRUE(lf_readMyParkAirports());
  // The user stands 20 m from S2.
  userAt(kLat, kLonA + 0.01 + 120.0 / 1852 / kNmPerDegLon, true);

  lf_parkingStep(true);
  EXPECT_EQ(gv_parkIcao.view(), "AAAA");
  EXPECT_TRUE(gParkAirportSite.chosen);
  EXPECT_EQ(gWaits, 1);
  EXPECT_TRUE(gStands.empty()) << "the file is loaded one step later";

  lf_parkingStep(false);
  ASSERT_EQ(gStands.size(), 2u);
  EXPECT_EQ(gReservedStand, "S2");
  EXPECT_EQ(gParkingStatus.reservedStand.load(), "S2");
  EXPECT_EQ(gWaitEnds, 1);
  EXPECT_EQ(gParkAirportSite.elevationFt, 100.0);
  EXPECT_GE(gFeedChanges, 2) << "chosen, then loaded with the file's elevation";
  EXPECT_EQ(listFile(), "\xEF\xBB\xBF" "AAAA,S2\nBBBB,B7\n") << "UTF-8 with its mark, the new line at the top";
  EXPECT_NE(log.text().find("airports\\my_park_airports.txt:AAAA,S2 new entry"), std::string::npos);
  EXPECT_EQ(gParkAirports.front().icao.view(), "AAAA");
  EXPECT_EQ(userStandAt(gUserSnapshot.lat, gUserSnapshot.lon), "S2");

  // On the ground nothing moves the park airport, not even standing at another airport.
  userAt(kLat, kLonB, true);
  lf_parkingStep(false);
  EXPECT_EQ(gv_parkIcao.view(), "AAAA");
  EXPECT_EQ(gStands.size(), 2u);
}

TEST_F(ParkAirportTest, OnTheGroundWithoutAFileOrAnAirportTheUserIsToldOnce) {
  userAt(kLat, kLonB, true);
  lf_parkingStep(false);
  lf_parkingStep(false);
  const std::string noFile = "User aircraft on the ground at BBBB, no airport file found";
  EXPECT_EQ(gf_messageArea().messageText, noFile);
  const std::string text = log.text();
  EXPECT_EQ(text.find(noFile), text.rfind(noFile)) << text;
  EXPECT_TRUE(gv_parkIcao.empty());

  userAt(kLat + 1.0, kLonB, true);
  lf_parkingStep(false);
  EXPECT_EQ(gf_messageArea().messageText, "User aircraft on the ground, no RT supported airport in sight");
  EXPECT_EQ(gWaits, 0);
}

TEST_F(ParkAirportTest, InTheAirTheNearestListedAirportInSightRulesUntilAnotherIsAsNear) {
  putAirportFile("AAAA", kLonA);
  putAirportFile("BBBB", kLonB, 200);
  // With an empty list nothing ever happens in the air.
  userAt(kLat, kLonA, false, 3000);
  lf_parkingStep(false);
  EXPECT_TRUE(gv_parkIcao.empty());

  put("airports/my_park_airports.txt", "BBBB\nAAAA\n");
  ASSERT_TRUE(lf_readMyParkAirports());
  userAt(kLat, kLonA - 3.0 / kNmPerDegLon, false, 3000);
  lf_parkingStep(false);
  EXPECT_EQ(gv_parkIcao.view(), "AAAA");
  EXPECT_EQ(gf_messageArea().messageText, "AAAA in sight at 3.0 nm");
  lf_parkingStep(false);
  EXPECT_EQ(gStands.size(), 2u);

  // Just west of the middle AAAA stays; at the middle BBBB is as near, and AAAA goes first.
  const double middle = (kLonA + kLonB) / 2;
  userAt(kLat, middle - 0.001, false, 3000);
  lf_parkingStep(false);
  EXPECT_EQ(gv_parkIcao.view(), "AAAA");
  userAt(kLat, middle + 0.0001, false, 3000);
  gLiveAc.push_back({});
  gLiveAc.back().flightState = kTaxi;
  gLiveAc.back().simState = kActive;
  gLiveAc.back().objectid = 77;
  gLiveAc.back().sid = 2;
  lf_parkingStep(false);
  EXPECT_TRUE(gv_parkIcao.empty()) << "the step that clears does not choose";
  EXPECT_TRUE(gStands.empty());
  EXPECT_FALSE(gParkAirportSite.chosen);
  EXPECT_EQ(gLiveAc.back().sid, 0);
  EXPECT_EQ(gRemoveQueue.size(), 1u) << "the taxiing aircraft leaves with its airport";
  EXPECT_NE(log.text().find("BBBB is in sight (5.8 nm), parked aircraft at AAAA will be removed first"),
            std::string::npos)
      << log.text();
  lf_parkingStep(false);
  EXPECT_EQ(gv_parkIcao.view(), "BBBB");
  lf_parkingStep(false);
  EXPECT_EQ(gParkAirportSite.elevationFt, 200.0);

  // Climbing through AIRP_HEIGHT over the airport is out of sight.
  userAt(kLat, kLonB, false, AIRP_HEIGHT.value + 1.0);
  lf_parkingStep(false);
  EXPECT_TRUE(gv_parkIcao.empty());
  EXPECT_NE(log.text().find("BBBB is out of sight (0.0 nm), parked aircraft will be removed"), std::string::npos);
}

TEST_F(ParkAirportTest, AFailedLoadLeavesNothingChosenAndTheNextStepTriesAgain) {
  put("airports/my_thirdparty/AAAA.xml", airportXml(stockParameters("AAAA"), ""));
  userAt(kLat, kLonA, true);
  lf_parkingStep(false);
  lf_parkingStep(false);
  EXPECT_EQ(gf_messageArea().messageText, "no stands found");
  EXPECT_TRUE(gv_parkIcao.empty());
  EXPECT_FALSE(gParkAirportSite.chosen);
  EXPECT_FALSE(gv_airportFileValid.load());
  EXPECT_EQ(gWaitEnds, 1) << "the parking controls are free again";
  lf_parkingStep(false);
  EXPECT_EQ(gv_parkIcao.view(), "AAAA");
}

TEST_F(ParkAirportTest, AutomaticRangeFollowsHeightAndTheNearestListedAirport) {
  const auto rangeAt = [](double distance, double alt = 5000) {
    gParkAirports = {{{}, 0, 0, distance, FixedCode<4>("AAAA")}};
    userAt(1, 1, false, alt);
    computeAutoRange();
    return RANGE.value;
  };
  EXPECT_EQ(rangeAt(7.0), 10);
  EXPECT_EQ(rangeAt(8.4), 8);
  EXPECT_EQ(rangeAt(8.6), 10);
  EXPECT_EQ(rangeAt(16.6), 18);
  EXPECT_EQ(rangeAt(36.9), 35);
  EXPECT_EQ(rangeAt(37.0), 40);
  EXPECT_EQ(rangeAt(5.0, AIRP_HEIGHT.value + 1.0), 40);
  EXPECT_EQ(rangeAt(5.0, AR_ABOVE_HEIGHT.value + 1.0), 100);
  gParkAirports.clear();
  userAt(1, 1, false, 5000);
  computeAutoRange();
  EXPECT_EQ(RANGE.value, 40) << "an empty list is far away";
  gv_userOnGround = true;
  computeAutoRange();
  EXPECT_EQ(RANGE.value, 10);
  EXPECT_EQ(gv_rangeNm.load(), 10.0);
}

}  // namespace
}  // namespace orv::test
