// Recordings are written by the recorder and by hand; reading must give back exactly what was
// sent, and a mistake must say on which line it is.
#include <gtest/gtest.h>

#include <string>

#include "recording.h"
#include "test_support.h"

namespace orv::standin {
namespace {

std::string errorOf(std::string_view text) {
  try {
    parseRecording(text);
  } catch (const RecordingError& e) {
    return e.what();
  }
  return "no error";
}

TEST(Recording, WritingAndReadingGiveTheSameDatagrams) {
  Recording original;
  original.epoch = 1718020800.0;
  original.datagrams = {
      {0.0, kWeatherPort, R"({"QNH":1018,"METAR":"EDDF 101150Z Q1018"})"},
      {0.35, kTrafficPort, "RTTFC,3951402,50.064487,8.684970,1600,-832,0,249.0,160.5,DLH401"},
      {0.35, kTrafficPort, ""},                       // an empty datagram stays one
      {1.5, kTrafficPort, "  leading blanks and trailing blanks  "},
      {2.0, kTrafficPort, std::string("line\r\nend\0zero", 14)},  // bytes a text line can't hold
      {2.25, kTrafficPort, "hex:looks like the mark"},
      {3.0, 50000, "Flughafen Frankfurt \xc3\xbc"},     // UTF-8 stays readable
  };
  const std::string text = formatRecording(original);
  EXPECT_NE(text.find("0.350 49005 RTTFC,3951402,"), std::string::npos);
  EXPECT_NE(text.find("2.000 49005 hex:6c696e650d0a656e64007a65726f\n"), std::string::npos);
  EXPECT_NE(text.find("# epoch 1718020800.000\n"), std::string::npos);

  const Recording read = parseRecording(text);
  ASSERT_TRUE(read.epoch);
  EXPECT_DOUBLE_EQ(*read.epoch, 1718020800.0);
  ASSERT_EQ(read.datagrams.size(), original.datagrams.size());
  for (std::size_t i = 0; i < read.datagrams.size(); ++i) {
    EXPECT_DOUBLE_EQ(read.datagrams[i].seconds, original.datagrams[i].seconds) << i;
    EXPECT_EQ(read.datagrams[i].port, original.datagrams[i].port) << i;
    EXPECT_EQ(read.datagrams[i].text, original.datagrams[i].text) << i;
  }

  // Edited on Windows: CR LF line ends, comments and blank lines between.
  const Recording edited = parseRecording("# made by hand\r\n\r\n1 49005 A,B\r\n2.5 49004 {}\r\n1000 49005\r\n");
  ASSERT_EQ(edited.datagrams.size(), 3u);
  EXPECT_FALSE(edited.epoch);
  EXPECT_EQ(edited.datagrams[0].text, "A,B");
  EXPECT_EQ(edited.datagrams[1].port, kWeatherPort);
  EXPECT_EQ(edited.datagrams[2].text, "");
}

TEST(Recording, BadLinesNameTheirLineNumber) {
  EXPECT_EQ(errorOf("1 49005 a\nabc 49005 b\n"), "line 2: time 'abc' is not a number of seconds");
  EXPECT_EQ(errorOf("# c\n\n-1 49005 b\n"), "line 3: time '-1' is not a number of seconds");
  EXPECT_EQ(errorOf("1 70000 b\n"), "line 1: port '70000' is not a port number (1 to 65535)");
  EXPECT_EQ(errorOf("1 0 b\n"), "line 1: port '0' is not a port number (1 to 65535)");
  EXPECT_EQ(errorOf("1 49005x b\n"), "line 1: port '49005x' is not a port number (1 to 65535)");
  EXPECT_EQ(errorOf("1.5\n"), "line 1: expected '<seconds> <port> <datagram>'");
  EXPECT_EQ(errorOf("1 49005 a\n2 49005 b\n1.5 49005 c\n"),
            "line 3: time 1.5 comes before the time of the line before (2)");
  EXPECT_EQ(errorOf("1 49005 hex:abc\n"), "line 1: the datagram after 'hex:' is not an even number of hex digits");
  EXPECT_EQ(errorOf("1 49005 hex:zz\n"), "line 1: the datagram after 'hex:' is not an even number of hex digits");
  EXPECT_EQ(errorOf("# epoch soon\n"), "line 1: epoch 'soon' is not a number of seconds");
  EXPECT_EQ(errorOf("1e3 49005 a\n"), "no error");

  test::TempDir dir;
  test::writeFile(dir / "bad.txt", "1 49005 a\n\nx 49005 b\n");
  try {
    loadRecording(dir / "bad.txt");
    ADD_FAILURE() << "no error";
  } catch (const RecordingError& e) {
    EXPECT_EQ(std::string(e.what()), (dir / "bad.txt").string() + ": line 3: time 'x' is not a number of seconds");
  }
  EXPECT_THROW(loadRecording(dir / "missing.txt"), RecordingError);
}

// The recording shipped for playing; what the decoder makes of it is the feed's loopback test.
TEST(Recording, TheShippedRecordingReads) {
  const Recording recording =
      loadRecording(std::filesystem::path(__FILE__).parent_path().parent_path() / "data/recordings/eddf_midday.txt");
  EXPECT_TRUE(recording.epoch);
  EXPECT_GE(recording.datagrams.back().seconds, 120.0);
}

}  // namespace
}  // namespace orv::standin
