// AI objects of the stand-in: creation, the by-type replies, refusals, removal.
#include <algorithm>

#include "standin_fixture.h"

namespace orv::test {
namespace {

constexpr const char* kScenario = R"({
  "terrainElevationFt": 364,
  "user": {"latitude": 50.0379, "longitude": 8.5622, "onGround": true, "atcId": "D-EUSR"},
  "titles": [{"title": "Airbus A320 Lufthansa", "model": "A320"}, "Boeing 737-800 Ryanair",
             {"title": "Airbus H135 ADAC", "model": "H135"}, {"title": "Gyro Club Special", "model": "GYRO"}],
  "models": {"GYRO": {"cgFt": 3, "helicopter": true}}
})";

class ObjectsTest : public StandinTest {
 protected:
  HANDLE h = nullptr;

  void SetUp() override {
    StandinTest::SetUp();
    h = startWith(kScenario);
    ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 202, "ObjectAdded"), S_OK);
    ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 203, "ObjectRemoved"), S_OK);
    SimConnect_AddToDataDefinition(h, 404, "Plane Alt Above Ground", "feet");
    SimConnect_AddToDataDefinition(h, 404, "Ground Altitude", "feet");
    SimConnect_AddToDataDefinition(h, 404, "SIM ON GROUND", "Bool", SIMCONNECT_DATATYPE_INT64);
    SimConnect_AddToDataDefinition(h, 404, "ATC ID", nullptr, SIMCONNECT_DATATYPE_STRING32);
    ASSERT_TRUE(dispatchAll(h).empty());
  }

  // Creates an aircraft nearby the user and gives the send id of the call.
  DWORD create(const char* title, const char* callsign) {
    EXPECT_EQ(SimConnect_AICreateNonATCAircraft(h, title, callsign, at(50.05, 8.57, 3000, false, 250), 104), S_OK);
    DWORD sendId = 0;
    EXPECT_EQ(SimConnect_GetLastSentPacketID(h, &sendId), S_OK);
    return sendId;
  }

  std::vector<RecordBytes> inRange(DWORD radius, SIMCONNECT_SIMOBJECT_TYPE type = SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT) {
    EXPECT_EQ(SimConnect_RequestDataOnSimObjectType(h, 101, 404, radius, type), S_OK);
    return ofId(dispatchAll(h), SIMCONNECT_RECV_ID_SIMOBJECT_DATA_BYTYPE);
  }
  std::vector<DWORD> idsOf(const std::vector<RecordBytes>& replies) {
    std::vector<DWORD> ids;
    for (const auto& r : replies) ids.push_back(recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(r).dwObjectID);
    return ids;
  }
};

TEST_F(ObjectsTest, CreatedAircraftAppearsThenShowsItsCallsignInByTypeReplies) {
  create("Airbus A320 Lufthansa", "DLH123");
  EXPECT_TRUE(dispatchAll(h).empty()) << "creation settles at the next frame";
  standin::advanceFrames(1);
  const auto added = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE);
  ASSERT_EQ(added.size(), 1u);
  const auto event = recordAs<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(added[0]);
  EXPECT_EQ(event.uEventID, 202u);
  EXPECT_EQ(event.eObjType, SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT);
  const DWORD id = event.dwData;
  EXPECT_GT(id, standin::userObjectId());

  const auto replies = inRange(20000);
  ASSERT_EQ(replies.size(), 2u);
  const auto user = recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(replies[0]);
  const auto ai = recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(replies[1]);
  EXPECT_EQ(user.dwObjectID, standin::userObjectId());
  EXPECT_EQ(ai.dwObjectID, id);
  EXPECT_EQ(ai.dwRequestID, 101u);
  EXPECT_EQ(ai.dwentrynumber, 2u);
  EXPECT_EQ(ai.dwoutof, 2u);
  EXPECT_EQ(replies[1].size(), 40u + 8 + 8 + 8 + 32);
  const auto block = blockOf(replies[1]);
  EXPECT_DOUBLE_EQ(readAt<double>(block, 0), 3000.0 - 364.0);
  EXPECT_DOUBLE_EQ(readAt<double>(block, 8), 364.0);
  EXPECT_EQ(readAt<std::int64_t>(block, 16), 0);
  EXPECT_STREQ(reinterpret_cast<const char*>(block.data() + 24), "DLH123");
  EXPECT_STREQ(reinterpret_cast<const char*>(blockOf(replies[0]).data() + 24), "D-EUSR");

  const auto state = standin::object(id);
  ASSERT_TRUE(state);
  EXPECT_EQ(state->atcModel, "A320");
  EXPECT_TRUE(state->aiControlled);
  EXPECT_NEAR(state->headingRad, 250 * 0.017453292519943295, 1e-12);
}

TEST_F(ObjectsTest, RefusedCreationsCarryTheSendIdOfTheirCall) {
  const DWORD unknown = create("Airbus A320 Lufthansa Cargo", "GEC1");  // not a title the simulator has
  const DWORD known = create("Boeing 737-800 Ryanair", "RYR1");
  EXPECT_NE(unknown, known);
  standin::advanceFrames(1);
  const auto records = dispatchAll(h);
  const auto exceptions = ofId(records, SIMCONNECT_RECV_ID_EXCEPTION);
  ASSERT_EQ(exceptions.size(), 1u);
  const auto ex = recordAs<SIMCONNECT_RECV_EXCEPTION>(exceptions[0]);
  EXPECT_EQ(ex.dwException, static_cast<DWORD>(SIMCONNECT_EXCEPTION_CREATE_OBJECT_FAILED));
  EXPECT_EQ(ex.dwSendID, unknown);
  EXPECT_EQ(ofId(records, SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE).size(), 1u);
  EXPECT_FALSE(standin::objectByAtcId("GEC1"));
  EXPECT_TRUE(standin::objectByAtcId("RYR1"));

  standin::setMaxAiObjects(1);
  const DWORD tooMany = create("Boeing 737-800 Ryanair", "RYR2");
  standin::advanceFrames(1);
  const auto full = recordAs<SIMCONNECT_RECV_EXCEPTION>(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EXCEPTION).at(0));
  EXPECT_EQ(full.dwException, static_cast<DWORD>(SIMCONNECT_EXCEPTION_TOO_MANY_OBJECTS));
  EXPECT_EQ(full.dwSendID, tooMany);
}

TEST_F(ObjectsTest, RemovalSendsObjectRemovedAndKeepsTheRecordOfCalls) {
  create("Boeing 737-800 Ryanair", "RYR1");
  standin::advanceFrames(1);
  dispatchAll(h);
  const DWORD id = standin::objectByAtcId("RYR1")->objectId;

  ASSERT_EQ(SimConnect_AIRemoveObject(h, id, 105), S_OK);
  ASSERT_EQ(SimConnect_AIRemoveObject(h, SIMCONNECT_OBJECT_ID_USER, 105), S_OK);
  ASSERT_EQ(SimConnect_AIRemoveObject(h, 999, 105), S_OK);
  EXPECT_EQ(exceptionsOf(dispatchAll(h)),
            (Exceptions{SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE, SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID}));
  EXPECT_TRUE(standin::object(id)) << "the object goes at the next frame";

  standin::advanceFrames(1);
  const auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  const auto removed = recordAs<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(records[0]);
  EXPECT_EQ(removed.uEventID, 203u);
  EXPECT_EQ(removed.dwData, id);
  EXPECT_FALSE(standin::object(id));
  EXPECT_TRUE(standin::object(SIMCONNECT_OBJECT_ID_USER));
  const auto calls = standin::callsFor(id);
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].call, "SimConnect_AICreateNonATCAircraft");
  EXPECT_EQ(calls[1].call, "SimConnect_AIRemoveObject");
}

TEST_F(ObjectsTest, ClosingASessionRemovesTheAircraftItMade) {
  HANDLE other = nullptr;
  ASSERT_EQ(SimConnect_Open(&other, "Second", nullptr, 0, nullptr, 0), S_OK);
  ASSERT_EQ(SimConnect_AICreateNonATCAircraft(other, "Boeing 737-800 Ryanair", "RYR9", at(50.04, 8.56, 0, true), 104),
            S_OK);
  standin::advanceFrames(1);
  const DWORD id = standin::objectByAtcId("RYR9")->objectId;
  dispatchAll(h);
  ASSERT_EQ(SimConnect_Close(other), S_OK);
  EXPECT_FALSE(standin::object(id));
  const auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(records[0]).dwData, id);
}

TEST_F(ObjectsTest, ByTypeRepliesFollowTheRadiusAndMayPrecedeObjectAdded) {
  const DWORD farAway = standin::addForeignAircraft("Some Asobo Airliner", "AS-GEN", 50.5, 8.5622, 12000.0);
  const DWORD nearby = standin::addForeignAircraft("Some Asobo Airliner", "", 50.04, 8.5622);
  dispatchAll(h);
  // 0.4622 degrees of latitude lie 51.4 km from the user.
  EXPECT_EQ(inRange(0).size(), 1u);
  EXPECT_EQ(inRange(10000).size(), 2u);
  const auto all = inRange(60000);
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(all[1]).dwObjectID, farAway);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_SIMOBJECT_DATA>(all[2]).dwObjectID, nearby);
  EXPECT_EQ(blockOf(all[2])[24], 0) << "an aircraft without ATC ID gives an empty text";
  standin::reset();

  h = startWith(std::string(kScenario).replace(1, 0, R"("objectAddedDelayFrames": 3,)"));
  SimConnect_SubscribeToSystemEvent(h, 202, "ObjectAdded");
  SimConnect_AddToDataDefinition(h, 404, "ATC ID", nullptr, SIMCONNECT_DATATYPE_STRING32);
  dispatchAll(h);
  create("Boeing 737-800 Ryanair", "RYR1");
  standin::advanceFrames(1);
  EXPECT_EQ(inRange(20000).size(), 2u) << "the aircraft exists before its ObjectAdded";
  standin::advanceFrames(2);
  EXPECT_TRUE(dispatchAll(h).empty());
  standin::advanceFrames(1);
  EXPECT_EQ(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE).size(), 1u);
}

TEST_F(ObjectsTest, RotorcraftAreObjectsOfTheHelicopterType) {
  create("Airbus H135 ADAC", "CHX22");
  create("Gyro Club Special", "GYR1");  // a helicopter by the scenario's own model table
  create("Airbus A320 Lufthansa", "DLH1");
  standin::advanceFrames(1);
  std::vector<std::pair<DWORD, SIMCONNECT_SIMOBJECT_TYPE>> added;
  for (const auto& r : ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE)) {
    const auto e = recordAs<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(r);
    added.emplace_back(e.dwData, e.eObjType);
  }
  ASSERT_EQ(added.size(), 3u);
  EXPECT_EQ(added[0].second, SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER);
  EXPECT_EQ(added[1].second, SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER);
  EXPECT_EQ(added[2].second, SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT);
  const DWORD user = standin::userObjectId();
  EXPECT_EQ(idsOf(inRange(20000)), (std::vector<DWORD>{user, added[2].first}));
  EXPECT_EQ(idsOf(inRange(20000, SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER)), (std::vector<DWORD>{added[0].first, added[1].first}));
  EXPECT_EQ(inRange(20000, SIMCONNECT_SIMOBJECT_TYPE_ALL).size(), 4u);

  ASSERT_EQ(SimConnect_AIRemoveObject(h, added[0].first, 105), S_OK);
  standin::advanceFrames(1);
  const auto removed = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE);
  ASSERT_EQ(removed.size(), 1u);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE>(removed[0]).eObjType, SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER);
}

TEST_F(ObjectsTest, ARadiusBeyondTheLimitIsAnExceptionNotASmallerRadius) {
  EXPECT_EQ(inRange(200000).size(), 1u);
  EXPECT_EQ(SimConnect_RequestDataOnSimObjectType(h, 101, 404, 200001, SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT), S_OK);
  DWORD sendId = 0;
  SimConnect_GetLastSentPacketID(h, &sendId);
  const auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  const auto ex = recordAs<SIMCONNECT_RECV_EXCEPTION>(records[0]);
  EXPECT_EQ(ex.dwException, static_cast<DWORD>(SIMCONNECT_EXCEPTION_OUT_OF_BOUNDS));
  EXPECT_EQ(ex.dwSendID, sendId);
}

}  // namespace
}  // namespace orv::test
