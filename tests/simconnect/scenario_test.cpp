// Scenario files of the stand-in: loading, the messages for bad ones, events scripted at times.
#include "standin_fixture.h"
#include "test_support.h"

namespace orv::test {
namespace {

using ScenarioTest = StandinTest;

std::string errorOf(std::string_view json) {
  try {
    standin::loadScenarioText(json, "test.json");
  } catch (const standin::ScenarioError& e) {
    return e.what();
  }
  return "(no error)";
}

TEST_F(ScenarioTest, BadScenariosNameTheFileAndThePlace) {
  TempDir dir;
  try {
    standin::loadScenarioFile(dir / "absent.json");
    FAIL() << "a missing file loaded";
  } catch (const standin::ScenarioError& e) {
    EXPECT_EQ(std::string(e.what()), "scenario '" + (dir / "absent.json").string() + "': the file cannot be read");
  }
  EXPECT_THAT(errorOf("{\n  \"frameRate\": 30,\n  oops\n}"),
              ::testing::AllOf(::testing::StartsWith("scenario 'test.json': not valid JSON:"),
                               ::testing::HasSubstr("line 3")));
  EXPECT_THAT(errorOf(R"({"frameRate": 1e999})"),
              ::testing::AllOf(::testing::StartsWith("scenario 'test.json': not valid JSON:"),
                               ::testing::HasSubstr("number overflow")))
      << "a number beyond any double is no JSON to read either";
  EXPECT_EQ(errorOf(R"([1, 2])"), "scenario 'test.json': must be a JSON object, not array");
  EXPECT_THAT(errorOf(R"({"frameRat": 30})"),
              ::testing::StartsWith("scenario 'test.json': unknown key 'frameRat' (known: simulator,"));
  EXPECT_EQ(errorOf(R"({"user": {"latitude": "fifty"}})"),
            "scenario 'test.json': user.latitude: must be a number, not \"fifty\"");
  EXPECT_EQ(errorOf(R"({"user": {"latitude": 95, "longitude": 8}})"),
            "scenario 'test.json': user: latitude 95 lies outside -90 to 90");
  EXPECT_EQ(errorOf(R"({"simulator": 2022})"), "scenario 'test.json': simulator: must be 2020 or 2024, not 2022");
  EXPECT_EQ(errorOf(R"({"frameRate": 0})"),
            "scenario 'test.json': frameRate: must lie in 1 to 1000 frames a second, not 0");
  EXPECT_EQ(errorOf(R"({"zuluStart": "2024-02-30T10:00:00Z"})"),
            "scenario 'test.json': zuluStart: '2024-02-30T10:00:00Z' is not a UTC time of the form 2024-06-01T12:00:00Z");
  EXPECT_EQ(errorOf(R"({"titles": ["A", ""]})"), "scenario 'test.json': titles[1]: a title must not be empty");
  EXPECT_EQ(errorOf(R"({"user": {"objectId": 7}, "firstObjectId": 5})"),
            "scenario 'test.json': firstObjectId: must lie above the user's object id 7");
  EXPECT_THAT(errorOf(R"({"events": [{"at": 1, "type": "quit"}, {"at": 2, "type": "explode"}]})"),
              ::testing::StartsWith("scenario 'test.json': events[1].type: unknown event type 'explode' (known: sim,"));
  EXPECT_EQ(errorOf(R"({"events": [{"at": 1, "type": "failCall", "call": "SimConnect_Text"}]})"),
            "scenario 'test.json': events[0].call: 'SimConnect_Text' is not a SimConnect call of the program");
  EXPECT_EQ(errorOf(R"({"events": [{"type": "quit"}]})"), "scenario 'test.json': events[0]: 'at' is missing");
  EXPECT_EQ(errorOf(R"({"airports": [{"icao": "EDDF", "latitude": 50, "longitude": 8, "parkings": [{"number": -1}]}]})"),
            "scenario 'test.json': airports[0].parkings[0].number: must lie in 0 to 4294967295, not -1");

  // A bad scenario leaves the loaded one in place; a running simulator keeps its scenario.
  standin::loadScenarioText(R"({"simulator": 2024})");
  EXPECT_THROW(standin::loadScenarioText(R"({"simulator": 1})"), standin::ScenarioError);
  standin::start();
  EXPECT_THROW(standin::loadScenarioText("{}"), std::logic_error);
  HANDLE h = nullptr;
  ASSERT_EQ(SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0), S_OK);
  EXPECT_STREQ(recordAs<SIMCONNECT_RECV_OPEN>(dispatchAll(h).at(0)).szApplicationName, "SunRise");
}

TEST_F(ScenarioTest, FileGivesUserAircraftAndIds) {
  TempDir dir;
  writeFile(dir / "eddf.json", R"({
    "applicationName": "Wright Flyer",
    "terrainElevationFt": 100,
    "user": {"objectId": 9, "title": "A320neo", "atcModel": "A320", "atcId": "D-AINA",
             "latitude": 50.03, "longitude": 8.55, "altitudeFt": 5000, "headingDeg": 90},
    "acceptAnyTitle": true
  })");
  standin::loadScenarioFile(dir / "eddf.json");
  EXPECT_EQ(standin::userObjectId(), 9u);
  const auto user = standin::object(SIMCONNECT_OBJECT_ID_USER);
  ASSERT_TRUE(user);
  EXPECT_EQ(user->objectId, 9u);
  EXPECT_EQ(user->atcId, "D-AINA");
  EXPECT_DOUBLE_EQ(user->altitudeFt, 5000);
  EXPECT_FALSE(user->onGround);
  EXPECT_DOUBLE_EQ(user->staticCgFt, 9.0);

  standin::start();
  HANDLE h = nullptr;
  ASSERT_EQ(SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0), S_OK);
  EXPECT_STREQ(recordAs<SIMCONNECT_RECV_OPEN>(dispatchAll(h).at(0)).szApplicationName, "Wright Flyer");
  SimConnect_AICreateNonATCAircraft(h, "Whatever", "N1", at(0, 0), 104);
  standin::advanceFrames(1);
  EXPECT_EQ(standin::objectByAtcId("N1")->objectId, 10u) << "AI ids start above the user's";
}

TEST_F(ScenarioTest, ScriptedEventsHappenAtTheirTimes) {
  HANDLE h = startWith(R"({
    "frameRate": 10,
    "events": [
      {"at": 2.0, "type": "quit"},
      {"at": 0.5, "type": "sim", "running": false},
      {"at": 1.0, "type": "addAircraft", "title": "Asobo Traffic", "atcId": "AS-GEN", "latitude": 50.04,
       "longitude": 8.56, "onGround": true},
      {"at": 1.0, "type": "failCall", "call": "SimConnect_AIReleaseControl", "count": 1},
      {"at": 1.5, "type": "fileEvent", "systemEvent": "FlightLoaded", "file": "next.FLT"}
    ]
  })");
  SimConnect_SubscribeToSystemEvent(h, 201, "Sim");
  SimConnect_SubscribeToSystemEvent(h, 202, "ObjectAdded");
  SimConnect_SubscribeToSystemEvent(h, 205, "FlightLoaded");
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_EVENT>(dispatchAll(h).at(0)).dwData, 1u);
  standin::advanceFrames(4);
  EXPECT_TRUE(dispatchAll(h).empty());
  standin::advanceFrames(1);
  auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_EVENT>(records[0]).dwData, 0u);

  standin::advanceFrames(5);
  records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  const DWORD foreign = recordAs<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(records[0]).dwData;
  EXPECT_EQ(standin::object(foreign)->atcId, "AS-GEN");
  EXPECT_TRUE(standin::object(foreign)->onGround);
  EXPECT_EQ(SimConnect_AIReleaseControl(h, foreign, 103), E_FAIL);
  EXPECT_EQ(SimConnect_AIReleaseControl(h, foreign, 103), S_OK);

  standin::advanceFrames(5);
  EXPECT_EQ(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_FILENAME).size(), 1u);
  standin::advanceFrames(100);  // stops at the quit
  EXPECT_FALSE(standin::isRunning());
  EXPECT_EQ(standin::frame(), 20u);
  EXPECT_EQ(recordId(dispatchAll(h).at(0)), static_cast<DWORD>(SIMCONNECT_RECV_ID_QUIT));
  EXPECT_THROW(standin::advanceFrames(1), std::logic_error);
}

}  // namespace
}  // namespace orv::test
