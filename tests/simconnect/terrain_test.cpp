// The stand-in's terrain: flat at the elevation of the nearest airport of the scenario within
// its terrain radius, the base elevation elsewhere; the height above ground, the ground altitude
// and the ground contact of every object follow it.
#include <map>
#include <string>

#include "standin_fixture.h"

namespace orv::test {
namespace {

constexpr double kFtPerM = 1.0 / 0.3048;
// Nautical miles per degree of latitude on the stand-in's sphere.
constexpr double kNmPerDegLat = 3440.065 * 0.017453292519943295;

struct Ground {
  double agl = 0, groundAlt = 0;
  bool onGround = false;
};

class TerrainTest : public StandinTest {
 protected:
  HANDLE h = nullptr;

  void SetUp() override {
    StandinTest::SetUp();
    // Frankfurt and Egelsbach 5 nm apart, Stuttgart 84 nm away; no base elevation: sea level.
    h = startWith(R"({
      "user": {"latitude": 50.0333, "longitude": 8.5706, "altitudeFt": 6000},
      "acceptAnyTitle": true,
      "models": {"B738": {"cgFt": 8.5, "pitchDeg": 0.5}},
      "titles": [{"title": "Boeing 737-800 Test", "model": "B738"}],
      "airports": [
        {"icao": "EDDF", "region": "ED", "name": "Frankfurt", "latitude": 50.0333, "longitude": 8.5706, "altitudeM": 111},
        {"icao": "EDFE", "region": "ED", "name": "Egelsbach", "latitude": 49.9608, "longitude": 8.6436, "altitudeM": 119},
        {"icao": "EDDS", "region": "ED", "name": "Stuttgart", "latitude": 48.6899, "longitude": 9.2220, "altitudeM": 389}
      ]
    })");
    SimConnect_AddToDataDefinition(h, 410, "Plane Alt Above Ground", "feet");
    SimConnect_AddToDataDefinition(h, 410, "GROUND ALTITUDE", "feet");
    SimConnect_AddToDataDefinition(h, 410, "SIM ON GROUND", "Bool", SIMCONNECT_DATATYPE_INT64);
  }

  DWORD create(const char* atcId, double latitude, double longitude, double altitudeFt, bool onGround = false) {
    SimConnect_AICreateNonATCAircraft(h, "Boeing 737-800 Test", atcId, at(latitude, longitude, altitudeFt, onGround),
                                      104);
    standin::advanceFrames(1);
    EXPECT_TRUE(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EXCEPTION).empty()) << atcId;
    const auto o = standin::objectByAtcId(atcId);
    return o ? o->objectId : 0;
  }

  // Every object within 200 km of the user, as the link asks for them.
  std::map<DWORD, Ground> ground() {
    EXPECT_EQ(SimConnect_RequestDataOnSimObjectType(h, 111, 410, 200000, SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT), S_OK);
    std::map<DWORD, Ground> out;
    for (const auto& r : ofId(dispatchAll(h), SIMCONNECT_RECV_ID_SIMOBJECT_DATA_BYTYPE)) {
      const auto b = blockOf(r);
      out[recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(r).dwObjectID] = {readAt<double>(b, 0), readAt<double>(b, 8),
                                                                     readAt<std::int64_t>(b, 16) != 0};
    }
    return out;
  }
};

TEST_F(TerrainTest, AirportsLieAtTheirElevationAndTheRestAtSeaLevel) {
  const double frankfurt = 111 * kFtPerM, egelsbach = 119 * kFtPerM, stuttgart = 389 * kFtPerM;
  const DWORD overFrankfurt = create("OVER1", 50.0333, 8.5706, 3000);
  const DWORD overEgelsbach = create("OVER2", 49.9608, 8.6436, 3000);
  const DWORD overStuttgart = create("OVER3", 48.6899, 9.2220, 3000);
  const DWORD inside = create("EDGE1", 50.0333 + 9.9 / kNmPerDegLat, 8.5706, 3000);
  const DWORD outside = create("EDGE2", 50.0333 + 10.1 / kNmPerDegLat, 8.5706, 3000);
  const DWORD overSea = create("FAR1", 50.8, 8.5706, 3000);
  const auto g = ground();
  ASSERT_EQ(g.size(), 7u) << "the user and six aircraft";
  EXPECT_NEAR(g.at(overFrankfurt).agl, 3000 - frankfurt, 1e-9);
  EXPECT_NEAR(g.at(overFrankfurt).groundAlt, frankfurt, 1e-9);
  EXPECT_NEAR(g.at(overEgelsbach).agl, 3000 - egelsbach, 1e-9) << "the nearest of two airports in reach";
  EXPECT_NEAR(g.at(overStuttgart).agl, 3000 - stuttgart, 1e-9);
  EXPECT_NEAR(g.at(inside).agl, 3000 - frankfurt, 1e-9) << "9.9 nm out: still the airport's ground";
  EXPECT_NEAR(g.at(outside).agl, 3000, 1e-9) << "10.1 nm out: sea level";
  EXPECT_NEAR(g.at(overSea).groundAlt, 0, 1e-9);
  EXPECT_NEAR(g.at(standin::userObjectId()).agl, 6000 - frankfurt, 1e-9);
  for (const auto& [id, ground] : g) EXPECT_FALSE(ground.onGround) << id;
}

TEST_F(TerrainTest, AircraftCreatedOnTheGroundStandOnTheTerrainUnderThem) {
  const DWORD atFrankfurt = create("GND1", 50.0333, 8.5706, 0, true);
  const DWORD inTheField = create("GND2", 50.5, 8.5706, 0, true);
  EXPECT_NEAR(standin::object(atFrankfurt)->altitudeFt, 111 * kFtPerM + 8.5, 1e-9);
  EXPECT_NEAR(standin::object(inTheField)->altitudeFt, 8.5, 1e-9);
  auto g = ground();
  EXPECT_TRUE(g.at(atFrankfurt).onGround);
  EXPECT_TRUE(g.at(inTheField).onGround);
  EXPECT_NEAR(g.at(atFrankfurt).agl, 8.5, 1e-9);

  // A scripted change of the base elevation moves the ground away from the airports only.
  standin::setTerrainElevation(100);
  g = ground();
  EXPECT_NEAR(g.at(inTheField).groundAlt, 100, 1e-9);
  EXPECT_TRUE(g.at(inTheField).onGround) << "now below the ground";
  EXPECT_NEAR(g.at(atFrankfurt).groundAlt, 111 * kFtPerM, 1e-9);
}

}  // namespace
}  // namespace orv::test
