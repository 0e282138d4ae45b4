#include <gtest/gtest.h>

#include <cmath>
#include <mutex>

#include "engine/engine_tables.h"
#include "engine/geodesy.h"
#include "foundation/run_flags.h"
#include "simlink/sim_run_state.h"
#include "foundation/time_text.h"
#include "simlink/sim_session.h"
#include "simlink/user_aircraft.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

// The latitude `nm` north, or the largest one still within it where floating point can't hit it.
double northBy(double lat, double nm) {
  double to = lat + nm / 60.0;  // a minute of latitude is a nautical mile on the engine's earth
  while (gf_distance({lat, 8.5622}, {to, 8.5622}) > nm) to = std::nextafter(to, lat);
  return to;
}

UserBlock positionNow() {
  lf_requestUserPosition();
  EXPECT_TRUE(standin::waitUntilIdle());
  std::lock_guard lock(gSimMutex);
  return gUserData;
}

TEST_F(SimLinkTest, AJumpOfMoreThanTenMilesEndsTheRunAsANewFlight) {
  connect();
  EXPECT_FALSE(gf_userPositionKnown(lf_requestUserPosition())) << "the reply of the previous request: none yet";
  gv_rtProf = true;
  const UserBlock first = positionNow();
  EXPECT_DOUBLE_EQ(first.lat, 50.0379);
  EXPECT_EQ(gv_simEpoch.load(), 1717243200) << "the scenario's UTC start, 2024-06-01 12:00";
  EXPECT_FALSE(gv_stopRun.load()) << "the first block of a run is no jump";

  const double tenNm = northBy(50.0379, 10.0);
  standin::moveUser(tenNm, 8.5622);
  EXPECT_DOUBLE_EQ(positionNow().lat, tenNm);
  EXPECT_FALSE(gv_stopRun.load()) << "exactly 10.0 nm";

  standin::moveUser(northBy(tenNm, 10.01) + 1e-6, 8.5622);
  positionNow();
  EXPECT_EQ(gv_exitReason.load(), ExitReason::NewFlight);
  EXPECT_EQ(gv_restartSeconds.load(), 45);
  EXPECT_NE(log.text().find("Teleport\n"), std::string::npos);
}

TEST_F(SimLinkTest, AFlightLoadedEventEndsTheRunAsANewFlight) {
  connect();
  standin::loadFlight("flights\\next.FLT");
  settle();
  EXPECT_EQ(gv_exitReason.load(), ExitReason::NewFlight);
  EXPECT_EQ(gv_restartSeconds.load(), 45);
  EXPECT_NE(log.text().find("==> SimConnect: New file event\nSimConnect: flight loaded event\n"), std::string::npos);
}

TEST_F(SimLinkTest, TheSecondBlockTicksTheProgramAndKnowsTheUserOnlyWhenPlaced) {
  connect(scenarioJson({}, R"("latitude": 0, "longitude": 0, "altitudeFt": -3.2)"));
  ASSERT_TRUE(lf_requestGroundAirData());
  EXPECT_EQ(positionNow().alt, 0.0) << "no negative altitude";
  frames(10);  // one second
  EXPECT_TRUE(gv_secondTick.exchange(false));
  EXPECT_FALSE(gv_userAircraftKnown.load()) << "a user at 0,0 is not placed yet";
  standin::moveUser(50.0379, 8.5622, 364.0);
  positionNow();
  frames(10);
  EXPECT_TRUE(gv_secondTick.load());
  EXPECT_TRUE(gv_userAircraftKnown.load());
  EXPECT_TRUE(gv_userOnGround.load());
}

}  // namespace
}  // namespace orv::test
