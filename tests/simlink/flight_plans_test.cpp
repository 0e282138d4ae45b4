#include <gtest/gtest.h>

#include <filesystem>

#include "foundation/sim_choice.h"
#include "foundation/user_error.h"
#include "foundation/user_paths.h"
#include "refdata/code_tables.h"
#include "simlink/create_failures.h"
#include "simlink/flight_plans.h"
#include "simlink_fixture.h"

namespace orv::test {
namespace {

namespace fs = std::filesystem;

TEST_F(SimLinkTest, FlightPlanFilesForMsfs2020AndTheirFolder) {
  connect();
  ASSERT_TRUE(gf_createFlightPlanFolder());
  LiveAc ac;
  ac.objectid = createOwn(4000001, "DLH401");
  ac.acClass = kHeavy;
  ac.from = FixedCode<3>("FRA");
  ac.to = FixedCode<3>("JFK");
  gf_setFlightPlan(ac);
  EXPECT_EQ(ac.flightPlanSet, 1);
  const fs::path file = appData.path() / "Orvane" / "orig_dest" / fmt::format("{}.pln", ac.objectid);
  EXPECT_EQ(readFile(file),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SimBase.Document Type=\"AceXML\" version=\"4,3\">\n"
            "<FlightPlan.FlightPlan>\n<FPType>IFR</FPType>\n<DepartureID>FRA</DepartureID>\n"
            "<DestinationID>JFK</DestinationID>\n</FlightPlan.FlightPlan>\n</SimBase.Document>\n\n");
  settle();
  EXPECT_EQ(standin::object(ac.objectid)->flightPlan, file.string());
  gf_removeFlightPlan(ac);
  EXPECT_FALSE(fs::exists(file));

  ac.to = {};
  ac.flightPlanSet = 0;
  gf_setFlightPlan(ac);
  EXPECT_EQ(ac.flightPlanSet, 0) << "a from without a to gets no plan";
  EXPECT_FALSE(fs::exists(file));

  gv_isMsfs2020 = false;
  ac.to = FixedCode<3>("MUC");
  ac.acClass = kLight;
  standin::clearCallLog();
  gf_setFlightPlan(ac);
  EXPECT_NE(readFile(file).find("<FPType>VFR</FPType>"), std::string::npos);
  EXPECT_TRUE(standin::calls().empty()) << "MSFS 2024 is told of no plan";
  gf_removeFlightPlanFolder();
  EXPECT_FALSE(fs::exists(gf_flightPlanFolder()));
}

TEST(CreateFailures, TheTwentiethRefusedTitleEndsTheRunWithError81) {
  LogCapture log;
  AcRecord ac;
  ac.cs = "DLH401";
  ac.code.acType = modelIndex("A320");
  ac.code.airline = airlineIndex("DLH");
  for (int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 0}) {
    ac.title = fmt::format("L{}", i);
    EXPECT_NO_THROW(gf_reportCreateFailed(ac)) << "19 titles, the first one twice";
  }
  EXPECT_NE(log.text().find("DLH401 'L0' could not be created by your Sim!\n"), std::string::npos);
  EXPECT_EQ(gFailedTitleInfo, (std::set<std::string, std::less<>>{"A320 DLH"}));
  ac.title = "L19";
  try {
    gf_reportCreateFailed(ac);
    ADD_FAILURE() << "no error at the 20th title";
  } catch (const UserErrorException& e) {
    EXPECT_EQ(e.code(), 81);
    EXPECT_EQ(e.text(), "There are too many liveries that could not be created!, see Log.txt");
  }
  EXPECT_NE(log.text().find("\n===> Error 81, There are too many liveries that could not be created!\n"),
            std::string::npos);
  gf_resetCodeTables();
}

}  // namespace
}  // namespace orv::test
