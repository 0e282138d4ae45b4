// Sessions of the stand-in: opening, the open record, system events, failures, threads.
#include <atomic>
#include <stdexcept>
#include <thread>

#include "standin_fixture.h"

namespace orv::test {
namespace {

using SessionTest = StandinTest;

TEST_F(SessionTest, OpenFailsUntilTheSimulatorRunsAndAgainAfterItQuits) {
  HANDLE h = reinterpret_cast<HANDLE>(0x1);
  EXPECT_EQ(SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0), E_FAIL);
  EXPECT_EQ(h, nullptr);

  standin::start();
  ASSERT_TRUE(SUCCEEDED(SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0)));
  ASSERT_NE(h, nullptr);
  EXPECT_EQ(standin::sessionNames(), std::vector<std::string>{"Orvane"});
  // Window messages and event objects are not served: a client that wants them is refused.
  HANDLE other = nullptr;
  EXPECT_EQ(SimConnect_Open(&other, "X", nullptr, 0, reinterpret_cast<HANDLE>(0x10), 0), E_FAIL);

  standin::stop();
  EXPECT_EQ(SimConnect_Open(&other, "Orvane", nullptr, 0, nullptr, 0), E_FAIL);
  // The quit record still arrives; after it the session is dead.
  auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(recordId(records[1]), static_cast<DWORD>(SIMCONNECT_RECV_ID_QUIT));
  EXPECT_EQ(SimConnect_CallDispatch(h, [](SIMCONNECT_RECV*, DWORD, void*) {}, nullptr), E_FAIL);
  EXPECT_EQ(SimConnect_SubscribeToSystemEvent(h, 201, "Sim"), E_FAIL);
  EXPECT_TRUE(standin::sessionNames().empty());
  EXPECT_EQ(SimConnect_Close(h), S_OK);
  EXPECT_EQ(SimConnect_Close(h), E_FAIL);
}

TEST_F(SessionTest, OpenRecordNamesTheSimulatorAndItsVersion) {
  standin::start();
  HANDLE h = nullptr;
  ASSERT_EQ(SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0), S_OK);
  auto open = recordAs<SIMCONNECT_RECV_OPEN>(ofId(dispatchAll(h), SIMCONNECT_RECV_ID_OPEN).at(0));
  EXPECT_STREQ(open.szApplicationName, "KittyHawk");
  EXPECT_EQ(open.dwApplicationVersionMajor, 11u);
  EXPECT_EQ(open.dwSize, sizeof(SIMCONNECT_RECV_OPEN));
  standin::stop();
  SimConnect_Close(h);

  standin::loadScenarioText(R"({"simulator": 2024, "applicationVersion": [12, 1, 282174, 999]})");
  standin::start();
  ASSERT_EQ(SimConnect_Open(&h, "Orvane", nullptr, 0, nullptr, 0), S_OK);
  open = recordAs<SIMCONNECT_RECV_OPEN>(dispatchAll(h).at(0));
  EXPECT_STREQ(open.szApplicationName, "SunRise");
  EXPECT_EQ(open.dwApplicationVersionMajor, 12u);
  EXPECT_EQ(open.dwApplicationVersionMinor, 1u);
  EXPECT_EQ(open.dwApplicationBuildMajor, 282174u);
  EXPECT_EQ(open.dwApplicationBuildMinor, 999u);
}

TEST_F(SessionTest, SimFollowsTheFlightPauseEventsTheirPauseAndFramesGoOnWhilePaused) {
  HANDLE h = startWith(R"({"inFlight": false})");
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 201, "sim"), S_OK);  // names are not case-sensitive
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 204, "Frame"), S_OK);
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 209, "Flight Loaded"), S_OK);
  auto records = dispatchAll(h);
  // The present state comes at once; the unknown name earns exception 7 with its send id.
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_EVENT>(records[0]).uEventID, 201u);
  EXPECT_EQ(recordAs<SIMCONNECT_RECV_EVENT>(records[0]).dwData, 0u);
  const auto ex = recordAs<SIMCONNECT_RECV_EXCEPTION>(records[1]);
  EXPECT_EQ(ex.dwException, static_cast<DWORD>(SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED));
  DWORD lastSent = 0;
  ASSERT_EQ(SimConnect_GetLastSentPacketID(h, &lastSent), S_OK);
  EXPECT_EQ(ex.dwSendID, lastSent);

  // Each event id with the data it carried, in order.
  const auto events = [&] {
    std::vector<std::pair<DWORD, DWORD>> out;
    for (const auto& r : ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT)) {
      const auto e = recordAs<SIMCONNECT_RECV_EVENT>(r);
      out.emplace_back(e.uEventID, e.dwData);
    }
    return out;
  };
  using Events = std::vector<std::pair<DWORD, DWORD>>;
  standin::setInFlight(true);
  EXPECT_EQ(events(), (Events{{201, 1}}));

  // A pause leaves "Sim" as it is: the flight still runs. "Pause" and "Pause_EX1" tell their
  // state at once when subscribed, and then each change.
  standin::setPaused(true);
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 223, "Pause_EX1"), S_OK);
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 224, "Pause"), S_OK);
  EXPECT_EQ(events(), (Events{{223, 1}, {224, 1}}));
  standin::setPaused(true);  // no change, no event
  standin::setPaused(false);
  EXPECT_EQ(events(), (Events{{223, 0}, {224, 0}}));
  // The active pause shows only in "Pause_EX1", with its own flag.
  standin::setActivePause(true);
  standin::setActivePause(false);
  EXPECT_EQ(events(), (Events{{223, 4}, {223, 0}}));

  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 225, "PauseFrame"), S_OK);
  standin::advanceFrames(3);
  const auto frames = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_FRAME);
  ASSERT_EQ(frames.size(), 3u) << "no pause frames while the flight runs";
  EXPECT_FLOAT_EQ(recordAs<SIMCONNECT_RECV_EVENT_FRAME>(frames[0]).fFrameRate, 30.0f);
  EXPECT_EQ(standin::frame(), 3u);
  standin::setPaused(true);
  dispatchAll(h);
  standin::advanceFrames(2);
  std::vector<DWORD> frameEvents;
  for (const auto& r : ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_FRAME))
    frameEvents.push_back(recordAs<SIMCONNECT_RECV_EVENT_FRAME>(r).uEventID);
  EXPECT_EQ(frameEvents, (std::vector<DWORD>{204, 225, 204, 225})) << "frames are drawn in a pause too";
}

TEST_F(SessionTest, FlightLoadedArrivesAsFileNameRecord) {
  HANDLE h = startWith("{}");
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 205, "FlightLoaded"), S_OK);
  standin::loadFlight("flights\\other.FLT");
  const auto records = ofId(dispatchAll(h), SIMCONNECT_RECV_ID_EVENT_FILENAME);
  ASSERT_EQ(records.size(), 1u);
  const auto r = recordAs<SIMCONNECT_RECV_EVENT_FILENAME>(records[0]);
  EXPECT_EQ(r.uEventID, 205u);
  EXPECT_STREQ(r.szFileName, "flights\\other.FLT");
  EXPECT_THROW(standin::fileEvent("NoSuchEvent", "x"), std::invalid_argument);
}

TEST_F(SessionTest, InjectedFailuresAndLostSessions) {
  HANDLE h = startWith("{}");
  // E_FAIL: the call never reaches the simulator, so it takes no send id.
  standin::failCalls("SimConnect_SubscribeToSystemEvent", 1);
  DWORD before = 0, after = 0;
  SimConnect_GetLastSentPacketID(h, &before);
  EXPECT_EQ(SimConnect_SubscribeToSystemEvent(h, 201, "Sim"), E_FAIL);
  SimConnect_GetLastSentPacketID(h, &after);
  EXPECT_EQ(after, before);
  EXPECT_EQ(SimConnect_SubscribeToSystemEvent(h, 201, "Sim"), S_OK);  // only the next one failed
  dispatchAll(h);

  // Exception mode: S_OK, then the exception with the call's own send id.
  standin::failCalls("SimConnect_RequestDataOnSimObject", 1, SIMCONNECT_EXCEPTION_VERSION_MISMATCH, 7);
  ASSERT_EQ(SimConnect_AddToDataDefinition(h, 409, "SIM ON GROUND", "Bool", SIMCONNECT_DATATYPE_INT64), S_OK);
  EXPECT_EQ(SimConnect_RequestDataOnSimObject(h, 108, 409, SIMCONNECT_OBJECT_ID_USER, SIMCONNECT_PERIOD_ONCE), S_OK);
  SimConnect_GetLastSentPacketID(h, &after);
  const auto records = dispatchAll(h);
  ASSERT_EQ(records.size(), 1u);
  const auto ex = recordAs<SIMCONNECT_RECV_EXCEPTION>(records[0]);
  EXPECT_EQ(ex.dwException, static_cast<DWORD>(SIMCONNECT_EXCEPTION_VERSION_MISMATCH));
  EXPECT_EQ(ex.dwIndex, 7u);
  EXPECT_EQ(ex.dwSendID, after);
  EXPECT_THROW(standin::failCalls("SimConnect_Text", 1), std::invalid_argument);

  standin::failCalls("SimConnect_Open", 1);
  HANDLE second = nullptr;
  EXPECT_EQ(SimConnect_Open(&second, "PARKING_DATA_RDR", nullptr, 0, nullptr, 0), E_FAIL);
  ASSERT_EQ(SimConnect_Open(&second, "PARKING_DATA_RDR", nullptr, 0, nullptr, 0), S_OK);

  // A lost connection: no quit record, every call fails, but the simulator takes new clients.
  standin::loseSessions();
  EXPECT_EQ(SimConnect_CallDispatch(h, [](SIMCONNECT_RECV*, DWORD, void*) {}, nullptr), E_FAIL);
  EXPECT_EQ(SimConnect_AIReleaseControl(h, 5, 103), E_FAIL);
  EXPECT_TRUE(standin::sessionNames().empty());
  HANDLE third = nullptr;
  EXPECT_EQ(SimConnect_Open(&third, "Orvane", nullptr, 0, nullptr, 0), S_OK);
}

// The real library is C code: an exception thrown by the callback cannot pass through it.
TEST_F(SessionTest, ACallbackThatThrowsEndsTheProcessAsWithTheRealLibrary) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(
      {
        HANDLE h = startWith("{}");
        SimConnect_SubscribeToSystemEvent(h, 201, "Sim");  // its present state waits to be delivered
        SimConnect_CallDispatch(h, [](SIMCONNECT_RECV*, DWORD, void*) { throw std::runtime_error("from the callback"); },
                                nullptr);
      },
      "");
}

// The SimClient thread polls while the test thread steps frames; nothing is lost or doubled.
TEST_F(SessionTest, PollingThreadAndSteppingThreadInterleave) {
  HANDLE h = startWith("{}");
  ASSERT_EQ(SimConnect_SubscribeToSystemEvent(h, 204, "Frame"), S_OK);
  struct Client {
    HANDLE h;
    std::atomic<int> frames{0};
    std::atomic<int> exceptions{0};
  } c{h};
  std::atomic<bool> stop{false};
  std::thread client([&] {
    while (!stop) {
      SimConnect_CallDispatch(
          h,
          [](SIMCONNECT_RECV* r, DWORD, void* context) {
            auto* self = static_cast<Client*>(context);
            if (r->dwID == SIMCONNECT_RECV_ID_EVENT_FRAME) {
              ++self->frames;
              // A call from inside the callback must not deadlock against the stepping thread.
              SimConnect_AIReleaseControl(self->h, SIMCONNECT_OBJECT_ID_USER, 103);
            } else if (r->dwID == SIMCONNECT_RECV_ID_EXCEPTION) {
              ++self->exceptions;
            }
          },
          &c);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  for (int i = 0; i < 200; ++i) standin::advanceFrames(1);
  EXPECT_TRUE(standin::waitUntilIdle());
  stop = true;
  client.join();
  EXPECT_EQ(c.frames.load(), 200);
  // Releasing the user aircraft is refused each time, as the simulator does.
  EXPECT_EQ(c.exceptions.load(), 200);
}

}  // namespace
}  // namespace orv::test
