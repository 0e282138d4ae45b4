// What the program does with the simulator's exception and quit records, and the words it
// leaves in the log when a request is refused.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/user_error.h"
#include "simlink/object_requests.h"
#include "simlink/sim_client.h"
#include "simlink/sim_dispatch.h"
#include "simlink/sim_run_state.h"
#include "simlink/user_aircraft.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

SIMCONNECT_RECV_EXCEPTION exceptionRecord(SIMCONNECT_EXCEPTION number, DWORD index = 4) {
  SIMCONNECT_RECV_EXCEPTION r{};
  r.dwSize = sizeof r;
  r.dwID = SIMCONNECT_RECV_ID_EXCEPTION;
  r.dwException = number;
  r.dwSendID = 12;
  r.dwIndex = index;
  return r;
}

// The log lines one exception record leaves.
std::string logged(LogCapture& log, SIMCONNECT_EXCEPTION number) {
  const std::size_t before = log.text().size();
  SIMCONNECT_RECV_EXCEPTION r = exceptionRecord(number);
  lf_dispatch(&r, sizeof r, nullptr);
  return log.text().substr(before);
}

TEST_F(SimLinkTest, EachExceptionOfTheSimulatorHasItsOwnAnswer) {
  // Unrecognized ids come in numbers while the session is being set up or torn down; they are
  // worth a line only while the user's aircraft is known and the run goes on.
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID), "");
  gv_userAircraftKnown = true;
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID), "==> SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID\n");
  gv_userClosing = true;
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID), "");
  gv_userClosing = false;

  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_TOO_MANY_OBJECTS), "SimConnect: too many objects (max 1000)\n");
  EXPECT_EQ(gf_messageArea().messageText, "SimConnect: too many objects (max 1000)");
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE), "SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE\n");
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_LOAD_FLIGHTPLAN_FAILED), "==> SimConnect exception: load flight plan failed\n");
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE),
            "SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE\n");
  EXPECT_EQ(logged(log, SIMCONNECT_EXCEPTION_OUT_OF_BOUNDS), "==> SIMCONNECT_EXCEPTION #31\n");
  EXPECT_FALSE(gv_stopRun.load()) << "none of these ends the run";

  SIMCONNECT_RECV_EXCEPTION mismatch = exceptionRecord(SIMCONNECT_EXCEPTION_VERSION_MISMATCH, 7);
  try {
    lf_dispatch(&mismatch, sizeof mismatch, nullptr);
    ADD_FAILURE() << "a version mismatch ends the session";
  } catch (const UserErrorException& e) {
    EXPECT_EQ(e.code(), 95);
    EXPECT_STREQ(e.what(), "95: SimConnect Version Mismatch, dwIndex: 7");
  }
}

TEST_F(SimLinkTest, AfterTheQuitRecordTheRunWaitsAsPausedUntilARequestFails) {
  connect();
  ASSERT_TRUE(gv_simRunning.load());
  standin::stop(true);
  settle();
  EXPECT_FALSE(gv_simRunning.load());
  EXPECT_FALSE(gv_stopRun.load()) << "the quit alone ends nothing";
  lf_requestAircraftInRange();
  EXPECT_TRUE(gv_simRequestFailed.load());
  EXPECT_EQ(gv_exitReason.load(), ExitReason::SimConnectError);
  EXPECT_EQ(gv_restartSeconds.load(), 9);
  lf_joinSimClient();
}

TEST_F(SimLinkTest, ARefusedRequestNamesItselfThenEndsTheSession) {
  struct Refused {
    const char* text;
    const char* call;
    std::function<void()> request;
  };
  const Refused requests[] = {
      {"SimConnect request ac within range fails", "SimConnect_RequestDataOnSimObjectType", [] { lf_requestAircraftInRange(); }},
      {"SimConnect request StaticCG fails", "SimConnect_RequestDataOnSimObject", [] { lf_requestStaticData(3); }},
      {"SimConnect request user ac position fails", "SimConnect_RequestDataOnSimObject", [] { lf_requestUserPosition(); }},
      {"SimConnect request ac gnd/air fails", "SimConnect_RequestDataOnSimObject", [] { lf_requestGroundAirData(); }},
  };
  for (const auto& [text, call, request] : requests) {
    connect();
    standin::failCalls(call, 1);
    request();
    EXPECT_NE(log.text().find(std::string("==> ") + text + "\nSimConnect request error\n"), std::string::npos)
        << text << "\n" << log.text();
    EXPECT_TRUE(gv_simRequestFailed.load()) << text;
    EXPECT_EQ(gv_exitReason.load(), ExitReason::SimConnectError) << text;
    lf_joinSimClient();
    standin::clearFailures();
    standin::reset();
    gf_resetRunFlags();
    gv_simRequestFailed = false;
  }
}

}  // namespace
}  // namespace orv::test
