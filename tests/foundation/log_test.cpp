#include <gtest/gtest.h>

#include <regex>

#include "foundation/generations.h"
#include "foundation/log.h"
#include "foundation/run_flags.h"
#include "foundation/time_text.h"
#include "test_support.h"

namespace orv {
namespace {

using test::LogCapture;
using test::readFile;
using test::TempDir;

TEST(Log, HeaderAndTheThreeKindsOfLine) {
  LogCapture log;
  gf_log("plain");
  gf_logIndented("indented {}", 7);
  gf_logError("bad {}", "thing");
  gf_log("two\nlines");
  const std::string text = log.text();
  EXPECT_TRUE(std::regex_search(
      text, std::regex(R"(^(Mon|Tue|Wed|Thu|Fri|Sat|Sun) [A-Z][a-z]{2} \d\d \d\d:\d\d:\d\d \d{4} \(utc\) Orvane version 12\.5\.4 for MSFS 2020/2024\n)")))
      << text;
  EXPECT_NE(text.find("\nplain\n          indented 7\n==> bad thing\ntwo\nlines\n"), std::string::npos) << text;
  EXPECT_EQ(text.find('\r'), std::string::npos);
}

TEST(Log, ErrorLinesReachTheDiskAtOncePlainLinesAtTheNextFlush) {
  LogCapture log;
  gf_log("buffered line");
  EXPECT_EQ(readFile(log.file()).find("buffered line"), std::string::npos);
  gf_logError("urgent");
  const std::string onDisk = readFile(log.file());
  EXPECT_NE(onDisk.find("buffered line\n==> urgent\n"), std::string::npos);
}

TEST(Log, EchoLinesOnlyWhileTheRunGoesOn) {
  LogCapture log;
  gf_logIfRunning("echo one");
  gv_userClosing = true;
  gf_logIfRunning("echo two");
  gv_userClosing = false;
  gv_stopRun = true;
  gf_logIfRunning("echo three");
  gv_stopRun = false;
  const std::string text = log.text();
  EXPECT_NE(text.find("echo one"), std::string::npos);
  EXPECT_EQ(text.find("echo two"), std::string::npos);
  EXPECT_EQ(text.find("echo three"), std::string::npos);
}

TEST(Log, ThreeGenerationsRotateWithoutLoss) {
  TempDir dir;
  const auto file = dir / "Log.txt";
  for (int run = 1; run <= 5; ++run) {
    gf_openLog(file);
    gf_log("run {}", run);
    gf_closeLog();
  }
  EXPECT_NE(readFile(file).find("run 5"), std::string::npos);
  EXPECT_NE(readFile(dir / "Log0.txt").find("run 4"), std::string::npos);
  EXPECT_NE(readFile(dir / "Log00.txt").find("run 3"), std::string::npos);
  EXPECT_NE(readFile(dir / "Log000.txt").find("run 2"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(dir / "Log0000.txt"));
}

TEST(Log, OpeningInAMissingFolderFailsWithThePath) {
  TempDir dir;
  const auto file = dir / "no" / "such" / "Log.txt";
  try {
    gf_openLog(file);
    FAIL() << "no error";
  } catch (const std::runtime_error& e) {
    EXPECT_EQ(std::string(e.what()), "Failed to write file " + file.string());
  }
  // Lines written while no log is open are dropped quietly.
  gf_log("nowhere");
}

TEST(Log, Banners) {
  // A section title in an 80-column frame.
  const std::string open = gf_banner(70, 0, true, false, "parameters");
  EXPECT_EQ(open, "\n" + std::string(34, '*') + " parameters " + std::string(34, '*'));
  EXPECT_EQ(gf_banner(70, 10, false, true), std::string(80, '*') + "\n");
  // An odd width is rounded up; a title that does not fit stands alone.
  EXPECT_EQ(gf_banner(7, 0, false, false), "********");
  EXPECT_EQ(gf_banner(9, 0, false, false, "abc"), "**** abc ****");
  EXPECT_EQ(gf_banner(4, 0, false, false, "abc"), "abc");
  EXPECT_EQ(gf_banner(5, 0, false, false, "abc"), "** abc **");

  LogCapture log;
  gf_logSectionStart("parameters");
  gf_logSectionEnd("parameters");
  const std::string text = log.text();
  EXPECT_NE(text.find("\n\n" + std::string(34, '*') + " parameters " + std::string(34, '*') + "\n" +
                      std::string(80, '*') + "\n\n"),
            std::string::npos);
}

TEST(TimeText, LongAndShortForms) {
  EXPECT_EQ(gf_longTimeText(0), "Thu Jan 01 00:00:00 1970");
  EXPECT_EQ(gf_longTimeText(1795415941), "Mon Nov 23 06:39:01 2026");
  EXPECT_EQ(gf_shortTimeText(1795415941), "06:39:01");
  EXPECT_EQ(gf_longTimeText(static_cast<std::time_t>(1) << 62), "Invalid time");

  // The feed's stamp is the clock only while RealTraffic keeps its own time.
  gv_feedTimestamp = 1795415941;
  EXPECT_NE(gf_programTime(), 1795415941);
  gv_rtProf = true;
  EXPECT_EQ(gf_timeOfDay(), "06:39:01");
  gv_feedTimestamp = 0;
  EXPECT_NE(gf_programTime(), 0);
  gv_rtProf = false;
}

}  // namespace
}  // namespace orv
