// What Orvane sends on the link, read back in degrees, feet and knots; and what the stand-in answers.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "link_messages.h"
#include "version_reply.h"

namespace orv::standin {
namespace {

TEST(LinkMessages, Qs121DecodesToDegreesFeetAndKnots) {
  // Pitch 2.5 degrees up, bank 10 left, heading 249, 3000 ft, 150 kt, at Frankfurt.
  const auto p = decodeQs121("Qs121=4363;-17453;4.345870;3000000;150000;0.873246;0.149585");
  ASSERT_TRUE(p);
  EXPECT_NEAR(p->pitchDeg, 2.5, 1e-3);
  EXPECT_NEAR(p->bankDeg, -10.0, 1e-3);
  EXPECT_NEAR(p->headingDeg, 249.0, 1e-4);
  EXPECT_DOUBLE_EQ(p->altitudeFt, 3000.0);
  EXPECT_DOUBLE_EQ(p->groundSpeedKt, 150.0);
  EXPECT_NEAR(p->latitudeDeg, 50.0333, 1e-4);
  EXPECT_NEAR(p->longitudeDeg, 8.5706, 1e-4);
  EXPECT_EQ(describePosition(*p), "position 50.033310 8.570589, 3000 ft, 150.0 kt, heading 249.0, pitch 2.50, bank -10.00");

  // West, south, below sea level, and a heading sent as a negative angle.
  const auto q = decodeQs121("Qs121=-4363;0;-0.100000;-50000;0;-0.591841;-2.136164");
  ASSERT_TRUE(q);
  EXPECT_NEAR(q->pitchDeg, -2.5, 1e-3);
  EXPECT_NEAR(q->headingDeg, 354.27, 1e-2);
  EXPECT_DOUBLE_EQ(q->altitudeFt, -50.0);
  EXPECT_NEAR(q->latitudeDeg, -33.91, 1e-2);
  EXPECT_NEAR(q->longitudeDeg, -122.39, 1e-2);

  for (std::string_view bad : {"Qs121=1;2;3;4;5;6", "Qs121=1;2;3;4;5;6;7;8", "Qs121=1;2;3;4;5;6;", "Qs121=1;;3;4;5;6;7",
                               "Qs121=1;2;x;4;5;6;7", "Qs121=", "Qs122=1;2;3;4;5;6;7", "Qs121=1;2;3;4;5;6;nan"})
    EXPECT_FALSE(decodeQs121(bad)) << bad;
}

TEST(LinkMessages, Qs123IsTheSimulatorsTimeInMilliseconds) {
  ASSERT_TRUE(decodeQs123("Qs123=1718020800250"));
  EXPECT_EQ(*decodeQs123("Qs123=1718020800250"), 1718020800250);
  EXPECT_EQ(describeSimTime(1718020800250), "2024-06-10 12:00:00.250 UTC");
  EXPECT_EQ(describeSimTime(0), "1970-01-01 00:00:00.000 UTC");
  EXPECT_EQ(describeSimTime(-1), "1969-12-31 23:59:59.999 UTC");
  for (std::string_view bad : {"Qs123=", "Qs123=12.5", "Qs123=abc", "Qs121=1"}) EXPECT_FALSE(decodeQs123(bad)) << bad;
}

TEST(LinkMessages, TheStreamIsCutIntoLinesWhereverTheBytesBreak) {
  LineSplitter splitter;
  feedBytes(splitter, "Qs999=vers");
  EXPECT_FALSE(nextLine(splitter));
  feedBytes(splitter, "ion\r");
  EXPECT_FALSE(nextLine(splitter));
  feedBytes(splitter, "\nQs123=1\r\nexit\n\r\nQs1");
  EXPECT_EQ(nextLine(splitter), "Qs999=version");
  EXPECT_EQ(nextLine(splitter), "Qs123=1");
  EXPECT_EQ(nextLine(splitter), "exit");
  EXPECT_EQ(nextLine(splitter), "");
  EXPECT_FALSE(nextLine(splitter));
  EXPECT_EQ(splitter.pending, "Qs1");
}

TEST(VersionReply, EachFormIsWhatOrvaneMustCopeWith) {
  VersionReply reply;
  EXPECT_EQ(versionReplyText(reply), "{\"level\":2,\"version\":\"9.0\"}\r\n");
  reply.level.reset();
  reply.version = "8.1 \"beta\"";
  EXPECT_EQ(versionReplyText(reply), "{\"version\":\"8.1 \\\"beta\\\"\"}\r\n");
  reply.form = ReplyForm::Malformed;
  reply.version.clear();  // even the shortest object comes out broken
  EXPECT_FALSE(versionReplyText(reply).empty());
  EXPECT_FALSE(nlohmann::json::accept(versionReplyText(reply)));
  reply.form = ReplyForm::Array;
  EXPECT_TRUE(nlohmann::json::parse(versionReplyText(reply)).is_array());
  for (const auto form : {ReplyForm::Empty, ReplyForm::Silent}) {
    reply.form = form;
    EXPECT_EQ(versionReplyText(reply), "");
  }
  EXPECT_EQ(replyFormOf("silent"), ReplyForm::Silent);
  EXPECT_FALSE(replyFormOf("Object"));
}

}  // namespace
}  // namespace orv::standin
