// Facility data of the stand-in: the definition of the parking reader and its reply blocks,
// checked at the byte positions the reader relies on.
#include "standin_fixture.h"

namespace orv::test {
namespace {

constexpr const char* kDefinition[] = {
    "OPEN AIRPORT", "LATITUDE", "LONGITUDE", "ALTITUDE", "NAME", "N_HELIPADS", "N_TAXI_PARKINGS",
    "OPEN TAXI_PARKING", "TYPE", "TAXI_POINT_TYPE", "NAME", "SUFFIX", "NUMBER", "ORIENTATION", "HEADING", "RADIUS",
    "BIAS_X", "BIAS_Z", "CLOSE TAXI_PARKING", "OPEN HELIPAD", "LATITUDE", "LONGITUDE", "ALTITUDE", "HEADING",
    "LENGTH", "WIDTH", "SURFACE", "TYPE", "CLOSE HELIPAD", "CLOSE AIRPORT",
};

class FacilityTest : public StandinTest {
 protected:
  HANDLE h = nullptr;

  void SetUp() override {
    StandinTest::SetUp();
    h = startWith(R"({"airports": [{
      "icao": "EDDF", "name": "Frankfurt/Main", "latitude": 50.0333, "longitude": 8.5706, "altitudeM": 111,
      "parkings": [
        {"type": 3, "taxiPointType": 1, "name": 12, "number": 7, "headingDeg": 245.5, "radiusM": 24, "biasXM": -10, "biasZM": 30},
        {"type": 13, "number": 8}
      ],
      "helipads": [{"latitude": 50.04, "longitude": 8.58, "altitudeM": 110, "headingDeg": 90, "lengthM": 25,
                    "widthM": 20, "surface": 4, "type": 2}]
    }]})",
                  "PARKING_DATA_RDR");
    for (const char* k : kDefinition) ASSERT_EQ(SimConnect_AddToFacilityDefinition(h, 1001, k), S_OK);
    ASSERT_TRUE(dispatchAll(h).empty());
  }
};

TEST_F(FacilityTest, AirportParkingsAndHelipadsInDefinitionOrder) {
  ASSERT_EQ(SimConnect_RequestFacilityData(h, 1001, 2001, "eddf", ""), S_OK);
  const auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 5u);
  for (std::size_t i = 0; i < 4; ++i) {
    ASSERT_EQ(recordId(records[i]), static_cast<DWORD>(SIMCONNECT_RECV_ID_FACILITY_DATA));
    EXPECT_EQ(readAt<DWORD>(records[i], 12), 2001u) << "request id at byte 12";
  }
  const auto& airport = records[0];
  EXPECT_EQ(readAt<DWORD>(airport, 24), 0u);
  EXPECT_DOUBLE_EQ(readAt<double>(airport, 40), 50.0333);
  EXPECT_DOUBLE_EQ(readAt<double>(airport, 48), 8.5706);
  EXPECT_DOUBLE_EQ(readAt<double>(airport, 56), 111.0);
  EXPECT_STREQ(reinterpret_cast<const char*>(airport.data() + 64), "Frankfurt/Main");
  EXPECT_EQ(readAt<std::int32_t>(airport, 96), 1);
  EXPECT_EQ(readAt<std::int32_t>(airport, 100), 2);
  EXPECT_EQ(airport.size(), 104u);

  const auto& stand = records[1];
  const auto header = recordAs<SIMCONNECT_RECV_FACILITY_DATA>(stand);
  EXPECT_EQ(header.Type, 15u);
  EXPECT_EQ(header.ParentUniqueRequestId, recordAs<SIMCONNECT_RECV_FACILITY_DATA>(airport).UniqueRequestId);
  EXPECT_EQ(header.IsListItem, 1u);
  EXPECT_EQ(header.ListSize, 2u);
  EXPECT_EQ(readAt<std::int32_t>(stand, 40), 3);
  EXPECT_EQ(readAt<std::int32_t>(stand, 48), 12);
  EXPECT_EQ(readAt<std::uint32_t>(stand, 56), 7u);
  EXPECT_FLOAT_EQ(readAt<float>(stand, 64), 245.5f);
  EXPECT_FLOAT_EQ(readAt<float>(stand, 68), 24.0f);
  EXPECT_FLOAT_EQ(readAt<float>(stand, 72), -10.0f);
  EXPECT_FLOAT_EQ(readAt<float>(stand, 76), 30.0f);
  EXPECT_EQ(readAt<std::int32_t>(records[2], 40), 13) << "the simulator sends every parking; skipping is the reader's";

  const auto& helipad = records[3];
  EXPECT_EQ(readAt<DWORD>(helipad, 24), 4u);
  EXPECT_DOUBLE_EQ(readAt<double>(helipad, 40), 50.04);
  EXPECT_FLOAT_EQ(readAt<float>(helipad, 64), 90.0f);
  EXPECT_FLOAT_EQ(readAt<float>(helipad, 72), 20.0f);
  EXPECT_EQ(readAt<std::int32_t>(helipad, 76), 4);
  EXPECT_EQ(readAt<std::int32_t>(helipad, 80), 2);

  EXPECT_EQ(recordId(records[4]), static_cast<DWORD>(SIMCONNECT_RECV_ID_FACILITY_DATA_END));
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_FACILITY_DATA_END>(records[4]).RequestId, 2001u);
}

TEST_F(FacilityTest, UnknownAirportsAndBadDefinitions) {
  ASSERT_EQ(SimConnect_RequestFacilityData(h, 1001, 2001, "KJFK", ""), S_OK);
  auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(recordId(records[0]), static_cast<DWORD>(SIMCONNECT_RECV_ID_FACILITY_DATA_END));

  SimConnect_AddToFacilityDefinition(h, 1002, "LATITUDE");          // no element open
  SimConnect_AddToFacilityDefinition(h, 1002, "OPEN TAXI_PARKING");  // not inside an airport
  SimConnect_AddToFacilityDefinition(h, 1002, "OPEN AIRPORT");
  SimConnect_AddToFacilityDefinition(h, 1002, "WINGSPAN");
  SimConnect_AddToFacilityDefinition(h, 1002, "CLOSE HELIPAD");
  SimConnect_RequestFacilityData(h, 1002, 2002, "EDDF", "");  // still open
  SimConnect_RequestFacilityData(h, 1003, 2003, "EDDF", "");  // never defined
  const DWORD dataError = SIMCONNECT_EXCEPTION_DATA_ERROR;
  EXPECT_EQ(exceptionsOf(dispatchAll(h)),
            (Exceptions{dataError, dataError, dataError, dataError, dataError, SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID}));
  EXPECT_EQ(standin::session("PARKING_DATA_RDR")->facilityDefinitions.at(1001).size(), std::size(kDefinition));
}

}  // namespace
}  // namespace orv::test
