// The weather line: the forms its QNH comes in, and where the value goes.
#include "feed/qnh_reader.h"

#include <gtest/gtest.h>

#include "feed/traffic_decoder.h"
#include "feed_fixture.h"

namespace orv {
namespace {

class QnhLines : public test::FeedTest {
 protected:
  // The QNH after the line, or -1 where the places it goes to disagree.
  std::int32_t take(const std::string& datagram) {
    reader.line = datagram;
    reader.processDatagram();
    const std::int32_t q = gv_qnh.load();
    return q == gTrafficDecoder.qnh.load() && q == gFeedStatus.qnh.load() && q == reader.lastQnh.load() ? q : -1;
  }
  std::int32_t qnh(const std::string& value) { return take(R"({"ICAO":"EDDF","QNH":)" + value + "}"); }
  QnhReader reader;
};

TEST_F(QnhLines, HectopascalInchesAndTheLimits) {
  EXPECT_EQ(qnh("2992"), 1013) << "hundredths of an inch";
  EXPECT_EQ(qnh("1100"), 1100);
  EXPECT_EQ(qnh("1101"), 900) << "373 hPa, clamped";
  EXPECT_EQ(qnh("1013.6"), 1014);
  EXPECT_EQ(qnh("3005.0"), 1018);
  EXPECT_EQ(qnh(R"("1015")"), 1015);
  EXPECT_EQ(qnh(R"("1016 hPa")"), 1016);
}

TEST_F(QnhLines, LinesWithoutAUsableQnhChangeNothing) {
  ASSERT_EQ(qnh("1015"), 1015);
  for (const char* value : {"null", "true", "[1013]", R"("abc")"}) EXPECT_EQ(qnh(value), 1015) << value;
  EXPECT_EQ(take("Q1013"), 1015);
  EXPECT_EQ(take("[1013]"), 1015);
  // Only leading digits count: a sign is no digit, so "-5" would otherwise clamp to 900 hPa
  // and take 3000 ft off every aircraft.
  for (const char* value : {R"("-5")", R"("+1013")", R"(" 1013")"}) EXPECT_EQ(qnh(value), 1015) << value;
  const std::string text = log.text();
  EXPECT_NE(text.find("\n==> QNH string parse error: -5 in {\"ICAO\":\"EDDF\",\"QNH\":\"-5\"}\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nno QNH {\"ICAO\":\"EDDF\",\"QNH\":null}\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n==> QNH string parse error: abc in {\"ICAO\":\"EDDF\",\"QNH\":\"abc\"}\n"), std::string::npos);
  EXPECT_NE(text.find(", in Q1013\n"), std::string::npos);
  EXPECT_NE(text.find("\nException not a JSON object, in [1013]\n"), std::string::npos);
}

TEST_F(QnhLines, ARepeatIsWrittenAgainOnlyAtStandardPressure) {
  ASSERT_EQ(qnh("1013"), 1013);
  gv_qnh = 0;
  qnh("1013");
  EXPECT_EQ(gv_qnh.load(), 1013);
  ASSERT_EQ(qnh("1015"), 1015);
  gv_qnh = 0;
  qnh("1015");
  EXPECT_EQ(gv_qnh.load(), 0);
}

}  // namespace
}  // namespace orv
