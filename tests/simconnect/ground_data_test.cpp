// Data definitions of the stand-in: ground contact from terrain and CG height, the user block,
// position writes, periods.
#include <cmath>

#include "standin_fixture.h"

namespace orv::test {
namespace {

constexpr double kRad = 0.017453292519943295;

class GroundDataTest : public StandinTest {
 protected:
  HANDLE h = nullptr;
  DWORD id = 0;

  void SetUp() override {
    StandinTest::SetUp();
    h = startWith(R"({
      "terrainElevationFt": 364,
      "zuluStart": "2024-03-01T06:30:00Z",
      "user": {"latitude": 50.0, "longitude": 8.0, "onGround": true, "headingDeg": 0, "lights": 257},
      "titles": [{"title": "Boeing 737-800 Test", "model": "B738"}],
      "models": {"B738": {"cgFt": 7.25, "pitchDeg": 1.0}}
    })");
    const char* position[] = {"Plane Latitude",   "Plane Longitude", "Plane Pitch degrees", "Plane Bank degrees",
                              "Plane Heading degrees true", "Plane Altitude", "Vertical Speed", "Airspeed True"};
    const char* units[] = {"degree", "degree", "radians", "radians", "radians", "feet", "feet per second", "knots"};
    for (int i = 0; i < 8; ++i) SimConnect_AddToDataDefinition(h, 402, position[i], units[i]);
    SimConnect_AddToDataDefinition(h, 404, "SIM ON GROUND", "Bool", SIMCONNECT_DATATYPE_INT64);
    SimConnect_AddToDataDefinition(h, 405, "Static CG to Ground", "feet");
    SimConnect_AddToDataDefinition(h, 405, "Static Pitch", "radians");
    SimConnect_AICreateNonATCAircraft(h, "Boeing 737-800 Test", "TST1", at(50.001, 8.0, 1000), 104);
    standin::advanceFrames(1);
    ASSERT_TRUE(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EXCEPTION).empty());
    id = standin::objectByAtcId("TST1")->objectId;
  }

  void writePosition(double altitudeFt, DWORD size = 64) {
    const double block[8] = {50.002, 8.001, -0.02, 0.1, 1.5, altitudeFt, -5.0, 140.0};
    EXPECT_EQ(SimConnect_SetDataOnSimObject(h, 402, id, 0, 0, size, const_cast<double*>(block)), S_OK);
  }

  bool reportedOnGround() {
    SimConnect_RequestDataOnSimObjectType(h, 101, 404, 5000, SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT);
    for (const auto& r : ofId(dispatchAll(h), SIMCONNECT_RECV_ID_SIMOBJECT_DATA_BYTYPE)) {
      if (recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(r).dwObjectID == id) return readAt<std::int64_t>(blockOf(r), 0) != 0;
    }
    ADD_FAILURE() << "object " << id << " not in the reply";
    return false;
  }
};

TEST_F(GroundDataTest, OnGroundIsAtOrBelowTerrainPlusStaticCgHeight) {
  ASSERT_EQ(SimConnect_RequestDataOnSimObject(h, 102, 405, id, SIMCONNECT_PERIOD_ONCE), S_OK);
  const auto statics = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_SIMOBJECT_DATA).at(0);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(statics).dwObjectID, id);
  EXPECT_DOUBLE_EQ(readAt<double>(blockOf(statics), 0), 7.25);
  EXPECT_DOUBLE_EQ(readAt<double>(blockOf(statics), 8), 1.0 * kRad);

  EXPECT_FALSE(reportedOnGround());
  writePosition(364 + 7.25);
  EXPECT_TRUE(reportedOnGround());
  writePosition(364 + 7.25 + 0.5);
  EXPECT_FALSE(reportedOnGround());
  writePosition(300);
  EXPECT_TRUE(reportedOnGround());
  writePosition(364 + 7.25 + 0.5);
  standin::setTerrainElevation(400);
  EXPECT_TRUE(reportedOnGround());

  const auto o = standin::object(id);
  EXPECT_DOUBLE_EQ(o->latitude, 50.002);
  EXPECT_DOUBLE_EQ(o->headingRad, 1.5);
  EXPECT_DOUBLE_EQ(o->trueAirspeedKt, 140.0);
  EXPECT_EQ(o->positionWrites, 4u);
  EXPECT_EQ(standin::callsFor(id).size(), 2u) << "position writes are counted, not listed";
}

TEST_F(GroundDataTest, BadWritesChangeNothing) {
  writePosition(2000, 56);  // 56 bytes where the definition has 64
  EXPECT_EQ(exceptionsOf(dispatchAll(h)), Exceptions{SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE});
  EXPECT_DOUBLE_EQ(standin::object(id)->altitudeFt, 1000);

  std::int64_t onGround = 1;
  ASSERT_EQ(SimConnect_SetDataOnSimObject(h, 404, id, 0, 0, 8, &onGround), S_OK);
  const auto ex = recordAs<SIMCONNECT_RECV_EXCEPTION>(dispatchAll(h).at(0));
  EXPECT_EQ(ex.dwException, static_cast<DWORD>(SIMCONNECT_EXCEPTION_DATA_ERROR));
  EXPECT_EQ(ex.dwIndex, 1u);

  // Unknown names and units are refused where they are declared.
  SimConnect_AddToDataDefinition(h, 406, "PLANE LATTITUDE", "degree");
  SimConnect_AddToDataDefinition(h, 406, "Plane Latitude", "furlong");
  SimConnect_AddToDataDefinition(h, 406, "TITLE", nullptr, SIMCONNECT_DATATYPE_FLOAT64);
  EXPECT_EQ(exceptionsOf(dispatchAll(h)),
            (Exceptions{SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED, SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED,
                        SIMCONNECT_EXCEPTION_INVALID_DATA_TYPE}));
}

TEST_F(GroundDataTest, UserBlockCarriesPositionClockLightsAndTemperature) {
  const struct {
    const char* name;
    const char* unit;
    SIMCONNECT_DATATYPE type;
  } datums[] = {
      {"Plane Latitude", "degree", SIMCONNECT_DATATYPE_FLOAT64},
      {"Plane Longitude", "degree", SIMCONNECT_DATATYPE_FLOAT64},
      {"Plane Pitch degrees", "radians", SIMCONNECT_DATATYPE_FLOAT64},
      {"Plane Bank degrees", "radians", SIMCONNECT_DATATYPE_FLOAT64},
      {"Plane Heading degrees true", "radians", SIMCONNECT_DATATYPE_FLOAT64},
      {"Plane Altitude", "feet", SIMCONNECT_DATATYPE_FLOAT64},
      {"Indicated Altitude", "feet", SIMCONNECT_DATATYPE_FLOAT64},
      {"Plane Alt Above Ground", "feet", SIMCONNECT_DATATYPE_FLOAT64},
      {"Ground Velocity", "knots", SIMCONNECT_DATATYPE_FLOAT64},
      {"ZULU TIME", "Seconds", SIMCONNECT_DATATYPE_INT64},
      {"ZULU DAY OF YEAR", "Number", SIMCONNECT_DATATYPE_INT64},
      {"ZULU YEAR", "Number", SIMCONNECT_DATATYPE_INT64},
      {"LIGHT STATES", "Mask", SIMCONNECT_DATATYPE_INT64},
      {"STANDARD ATM TEMPERATURE", "Rankine", SIMCONNECT_DATATYPE_FLOAT64},
  };
  for (const auto& d : datums) SimConnect_AddToDataDefinition(h, 403, d.name, d.unit, d.type);
  standin::setUserGroundSpeed(360);  // 0.1 nm a second, due north
  standin::advanceSeconds(2);
  dispatchAll(h);
  ASSERT_EQ(SimConnect_RequestDataOnSimObject(h, 109, 403, SIMCONNECT_OBJECT_ID_USER, SIMCONNECT_PERIOD_ONCE), S_OK);
  const auto reply = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_SIMOBJECT_DATA).at(0);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(reply).dwObjectID, standin::userObjectId());
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(reply).dwDefineCount, 14u);
  const auto b = blockOf(reply);
  ASSERT_EQ(b.size(), 14u * 8);
  EXPECT_NEAR(readAt<double>(b, 0), 50.0 + 0.2 / 60, 1e-5);
  EXPECT_NEAR(readAt<double>(b, 8), 8.0, 1e-9);
  const double altitude = 364 + 4.0;  // C172 CG height of the built-in table
  EXPECT_DOUBLE_EQ(readAt<double>(b, 40), altitude);
  EXPECT_DOUBLE_EQ(readAt<double>(b, 56), 4.0);
  EXPECT_DOUBLE_EQ(readAt<double>(b, 64), 360.0);
  EXPECT_EQ(readAt<std::int64_t>(b, 72), 6 * 3600 + 30 * 60 + 2);
  EXPECT_EQ(readAt<std::int64_t>(b, 80), 61);  // 1 March of a leap year
  EXPECT_EQ(readAt<std::int64_t>(b, 88), 2024);
  EXPECT_EQ(readAt<std::int64_t>(b, 96), 257);
  EXPECT_NEAR(readAt<double>(b, 104), 517.357653, 1e-6) << "287.42 K of the standard atmosphere at 368 ft";
}

TEST_F(GroundDataTest, PeriodicRequestsComeEachSecondUntilCancelled) {
  ASSERT_EQ(SimConnect_RequestDataOnSimObject(h, 108, 404, SIMCONNECT_OBJECT_ID_USER, SIMCONNECT_PERIOD_SECOND), S_OK);
  standin::advanceFrames(29);
  EXPECT_TRUE(dispatchAll(h).empty());
  standin::advanceFrames(31);
  const auto replies = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_SIMOBJECT_DATA);
  ASSERT_EQ(replies.size(), 2u);
  EXPECT_EQ(readAt<std::int64_t>(blockOf(replies[0]), 0), 1) << "the user stands on the ground";
  ASSERT_EQ(SimConnect_RequestDataOnSimObject(h, 108, 404, SIMCONNECT_OBJECT_ID_USER, SIMCONNECT_PERIOD_NEVER), S_OK);
  standin::advanceFrames(60);
  EXPECT_TRUE(dispatchAll(h).empty());
  // A request about an object that does not exist is refused.
  SimConnect_RequestDataOnSimObject(h, 102, 405, 4242, SIMCONNECT_PERIOD_ONCE);
  EXPECT_EQ(exceptionsOf(dispatchAll(h)), Exceptions{SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID});
}

}  // namespace
}  // namespace orv::test
