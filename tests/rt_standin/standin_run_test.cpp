// The whole stand-in as its command line starts it: options, and a run that plays a recording
// into its own recorder.
#include <gtest/gtest.h>

#include <ctime>
#include <sstream>
#include <string>
#include <utility>

#include "loopback_fixture.h"
#include "options.h"
#include "standin_run.h"
#include "test_support.h"
#include "timestamp_shift.h"

namespace orv::standin {
namespace {

std::string optionError(std::vector<std::string_view> arguments) {
  try {
    parseOptions(arguments);
  } catch (const OptionError& e) {
    return e.what();
  }
  return "no error";
}

TEST(StandinOptions, MistakesAreToldInWords) {
  const StandinOptions o = parseOptions({"--level", "none", "--traffic-port", "0", "--reply", "array"});
  EXPECT_FALSE(o.linkOptions.reply.level);
  EXPECT_EQ(o.recordOptions.trafficPort, 0);  // one port option serves playing and recording
  EXPECT_EQ(o.playOptions.weatherPort, 49004);
  EXPECT_EQ(optionError({"--tcp-port", "65536"}), "--tcp-port 65536: not a port number (0 to 65535)");
  EXPECT_EQ(optionError({"--speed", "0"}), "--speed 0: not a number above 0");
  EXPECT_EQ(optionError({"--duration", "-1"}), "--duration -1: not a number of 0 or more");
  EXPECT_EQ(optionError({"--reply", "none"}), "--reply none: one of object, empty, malformed, array, silent");
  EXPECT_EQ(optionError({"--repeat-every", "x"}), "--repeat-every x: not a whole number of 0 or more");
  EXPECT_EQ(optionError({"--play"}), "--play needs a value");
  EXPECT_EQ(optionError({"--fast"}), "unknown option --fast (see --help)");
  EXPECT_EQ(optionError({"--no-link"}), "nothing to do: --no-link without --play or --record");
  EXPECT_TRUE(parseOptions({"--no-link", "--help"}).help);
}

// Free traffic and weather ports for one run: other tests may run beside it on the default ones.
std::pair<std::string, std::string> freeFeedPorts() {
  test::OwnedSocket traffic(test::udpReceiver(10));
  test::OwnedSocket weather(test::udpReceiver(10));
  return {std::to_string(net::localPort(traffic.s)), std::to_string(net::localPort(weather.s))};
}

TEST(StandinRun, PlaysARecordingIntoItsOwnRecorder) {
  orv::test::TempDir dir;
  // An empty datagram, a binary one and the largest the reader takes among the others.
  const std::string played =
      "# epoch 1718020800.000\n0.000 49004 {\"QNH\":1018}\n"
      "0.100 49005 a,b,c,d,e,f,g,h,i,j,k,l,m,n,1718020799.50,p\n0.150 49005\n"
      "0.200 49005 hex:00ff\n0.250 49005 ";
  orv::test::writeFile(dir / "in.txt", played + std::string(16384, 'x') + "\n0.300 49004 {\"QNH\":1017}\n");

  const auto [trafficPort, weatherPort] = freeFeedPorts();

  const std::string in = (dir / "in.txt").string(), outFile = (dir / "out.txt").string();
  const StandinOptions options = parseOptions({"--no-link", "--play", in, "--record", outFile, "--speed", "10",
                                               "--traffic-port", trafficPort, "--weather-port", weatherPort});
  std::ostringstream out;
  Console console(out);
  std::atomic<bool> stop{false};
  EXPECT_EQ(runStandin(options, console, stop), 0) << out.str();
  EXPECT_NE(out.str().find("feed: 4 traffic, 2 weather"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("recording: 6 datagrams written"), std::string::npos) << out.str();

  // What the recorder heard on the free ports is written under the standard ones, byte for byte.
  const Recording recorded = loadRecording(dir / "out.txt");
  ASSERT_TRUE(recorded.epoch);
  EXPECT_NEAR(*recorded.epoch, static_cast<double>(std::time(nullptr)), 60.0);
  ASSERT_EQ(recorded.datagrams.size(), 6u);
  std::vector<std::string> texts;
  for (const auto& d : recorded.datagrams)
    texts.push_back(std::to_string(d.port) + " " + std::to_string(d.text.size()) + " " + d.text.substr(0, 28));
  std::sort(texts.begin(), texts.end());
  EXPECT_EQ(texts, (std::vector<std::string>{"49004 12 {\"QNH\":1017}", "49004 12 {\"QNH\":1018}", "49005 0 ",
                                             "49005 16384 " + std::string(28, 'x'), std::string("49005 2 \0\xff", 10),
                                             "49005 43 a,b,c,d,e,f,g,h,i,j,k,l,m,n,"}));
}

// Two reports of one aircraft 3 s apart, played 20 times faster: with --speed their times are
// moved to the present and come 0.15 s apart; with --time-scale they stay 3 s apart, on the clock
// that the program and the simulator then run.
TEST(StandinRun, TimeScaleKeepsTheReportsAsFarApartAsRecorded) {
  orv::test::TempDir dir;
  orv::test::writeFile(dir / "in.txt",
                       "# epoch 1718020800.000\n0.000 49005 a,b,c,d,e,f,g,h,i,j,k,l,m,n,1718020799.50,p\n"
                       "3.000 49005 a,b,c,d,e,f,g,h,i,j,k,l,m,n,1718020802.50,p\n");
  for (const char* option : {"--speed", "--time-scale"}) {
    const auto [trafficPort, weatherPort] = freeFeedPorts();
    const std::string in = (dir / "in.txt").string(), outFile = (dir / "out.txt").string();
    const StandinOptions options = parseOptions({"--no-link", "--play", in, "--record", outFile, option, "20",
                                                 "--traffic-port", trafficPort, "--weather-port", weatherPort});
    std::ostringstream out;
    Console console(out);
    std::atomic<bool> stop{false};
    ASSERT_EQ(runStandin(options, console, stop), 0) << out.str();
    const Recording recorded = loadRecording(dir / "out.txt");
    ASSERT_EQ(recorded.datagrams.size(), 2u) << option;
    const double arrived = recorded.datagrams[1].seconds - recorded.datagrams[0].seconds;
    const double reported =
        *reportTimestamp(recorded.datagrams[1].text) - *reportTimestamp(recorded.datagrams[0].text);
    EXPECT_NEAR(arrived, 0.15, 0.1) << option;
    EXPECT_NEAR(reported, option == std::string("--speed") ? 0.15 : 3.0, 0.1) << option;
    // A report is as old when it is sent as it was when it arrived: 0.5 s, on the clock it follows.
    const double sentAge = (*recorded.epoch + recorded.datagrams[0].seconds) - *reportTimestamp(recorded.datagrams[0].text);
    EXPECT_NEAR(sentAge, 0.5, 0.1) << option;
  }
}

}  // namespace
}  // namespace orv::standin
