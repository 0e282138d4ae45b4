#include <gtest/gtest.h>

#include <map>
#include <string>

#include "foundation/parameters.h"
#include "line_inspector.h"
#include "report_line.h"

namespace orv::inspect {
namespace {

using test::reportLine;

DecodingState nearFrankfurt() {
  DecodingState state;
  state.userLat = 50.0;
  state.userLon = 8.5;
  return state;
}

TEST(LineInspection, EachLineGivesOneObjectOfItsKind) {
  LineInspector inspector(nearFrankfurt());

  const auto msg = inspector.inspect(reportLine());
  EXPECT_EQ(msg["line"], 1);
  EXPECT_EQ(msg["kind"], "msg");
  EXPECT_EQ(msg["hexid"], 4921232u);
  EXPECT_EQ(msg["cs"], "DLH400");
  EXPECT_EQ(msg["reg"], "D-AIZA");
  EXPECT_EQ(msg["model"], "A320");
  EXPECT_EQ(msg["from"], "FRA");
  EXPECT_EQ(msg["to"], "JFK");
  EXPECT_DOUBLE_EQ(msg["timestamp"].get<double>(), 1790000000.5);
  EXPECT_DOUBLE_EQ(msg["alt"].get<double>(), 30000 - 0.25 * 27) << "brought from standard pressure to QNH 1013";
  EXPECT_DOUBLE_EQ(msg["gs"].get<double>(), 450);
  EXPECT_DOUBLE_EQ(msg["track"].get<double>(), 90);
  EXPECT_DOUBLE_EQ(msg["vs"].get<double>(), -64);
  EXPECT_DOUBLE_EQ(msg["tas"].get<double>(), 470);
  EXPECT_EQ(msg["airborne"], true);
  EXPECT_EQ(msg["precise"], true);
  EXPECT_EQ(msg["stopped"], false);
  EXPECT_TRUE(msg["roll"].is_null()) << "-1 is an unknown roll";
  EXPECT_NEAR(msg["trueHeading"].get<double>(), 91.0 / 57.29577951308232, 1e-12);
  EXPECT_EQ(msg["tick"], 3000);
  EXPECT_FALSE(msg.contains("log"));

  const auto drop = inspector.inspect(reportLine({{2, "51.0"}}));
  EXPECT_EQ(jsonLine(drop), R"({"line":2,"kind":"drop"})") << "60 nm away, beyond RANGE 40";

  const auto bad = inspector.inspect(reportLine({{2, "fifty"}}));
  EXPECT_EQ(jsonLine(bad), R"({"line":3,"kind":"log","log":"exception in processLineSub: lat:fifty"})");

  // A line of no fields at all, and a line cut short: the log holds each line's own text only.
  EXPECT_EQ(jsonLine(inspector.inspect("")),
            R"({"line":4,"kind":"log","log":"exception in processLineSub: timestamp:"})");
  const auto cut = inspector.inspect("0,4921232,50.0,8.5,30000,-64,,90.0,450,DLH400,A320,D-AIZA,FRA,JFK,1790000000.5");
  EXPECT_EQ(cut["kind"], "log");
  EXPECT_EQ(cut["log"], "exception in processLineSub: roll:") << "the first field it needs is behind the end";

  const auto again = inspector.inspect(reportLine({{1, "4921233"}, {13, "null"}, {23, "5"}}));
  EXPECT_EQ(again["kind"], "msg");
  EXPECT_EQ(again["line"], 6);
  EXPECT_TRUE(again["to"].is_null());
  EXPECT_NEAR(again["roll"].get<double>(), -5.0 / 57.29577951308232, 1e-12) << "the feed's roll with the sign turned";
}

TEST(LineInspection, DecodingStateComesFromTheOptions) {
  const std::string taxiing = reportLine({{4, "400"}, {8, "15"}, {7, "250"}});
  {
    LineInspector inspector(nearFrankfurt());
    EXPECT_EQ(inspector.inspect(taxiing)["kind"], "drop") << "on the ground, and no park airport";
  }
  DecodingState state = nearFrankfurt();
  state.park = ParkAirport{50.03, 8.57, 364};
  state.qnh = 1023;
  {
    LineInspector inspector(state);
    const auto onGround = inspector.inspect(taxiing);
    EXPECT_EQ(onGround["kind"], "msg");
    EXPECT_EQ(onGround["airborne"], false);
    EXPECT_EQ(onGround["alt"], 0.0);
    const auto climbing = inspector.inspect(reportLine({{4, "2000"}, {8, "160"}}));
    EXPECT_DOUBLE_EQ(climbing["alt"].get<double>(), 2000 + 9.75 * 27) << "QNH 1023";
  }
  state.airborneOnly = true;
  {
    LineInspector inspector(state);
    EXPECT_EQ(inspector.inspect(reportLine({{4, "200"}, {8, "160"}}))["kind"], "drop") << "106 ft above the airport";
    EXPECT_EQ(inspector.inspect(reportLine())["kind"], "msg");
  }
  EXPECT_TRUE(AIRBORNE_ONLY.value);
  state.rangeNm = 2;
  LineInspector inspector(state);
  EXPECT_EQ(inspector.inspect(reportLine({{2, "50.05"}}))["kind"], "drop") << "3 nm away, beyond RANGE 2";
  EXPECT_EQ(inspector.inspect(reportLine({{2, "50.03"}}))["kind"], "msg");
}

TEST(LineInspection, TextThatIsNoUtf8IsReplacedInTheOutput) {
  LineInspector inspector(nearFrankfurt());
  const std::string text = jsonLine(inspector.inspect(reportLine({{11, "D-AI\xff"}})));
  EXPECT_NE(text.find("\"reg\":\"D-AI\xef\xbf\xbd\""), std::string::npos) << text;
  const std::string logged = jsonLine(inspector.inspect(reportLine({{4, "x\xfe"}})));
  EXPECT_NE(logged.find("\"kind\":\"log\",\"log\":\"exception in processLineSub: altitude x\xef\xbf\xbd incorrect, "
                        "from: ,4921232,50.0,8.5,x\xef\xbf\xbd,"),
            std::string::npos)
      << logged;
}

}  // namespace
}  // namespace orv::inspect
