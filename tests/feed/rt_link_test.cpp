// The RealTraffic link on loopback: the test plays RealTraffic on a free port and sees what
// the program sends, and how it takes an empty reply and a lost link.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "feed/rt_position.h"
#include "feed/rt_version.h"
#include "feed_fixture.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

// The user at Frankfurt, nose up, banking right, heading west.
UserBlock frankfurt() {
  UserBlock u;
  u.lat = 50.0333, u.lon = 8.5706, u.pitch = -0.05, u.bank = 0.1, u.heading = 4.712389;
  u.indicatedAlt = 364.2, u.groundVelocity = 12.5;
  return u;
}
constexpr std::string_view kFrankfurtQs121 = "Qs121=5000;10000;4.712389;364200;12500;0.873246;0.149585\r\n";

class RtLink : public test::FeedTest {
 protected:
  void SetUp() override {
    FeedTest::SetUp();
    gv_rtOnThisPc = true;
    lf_openRtServer("0");
    port = net::localPort(gv_rtListenSocket.load());
  }
  // The version reply is sent before it is asked for: it waits in the socket.
  void connectAndWait(test::RtPeer& peer, std::string_view reply) {
    peer.send(reply);
    waitForClient();
    EXPECT_EQ(peer.receiveLine(), "Qs999=version\r\n");
  }
  std::uint16_t port = 0;
};

TEST_F(RtLink, VersionRepliesSetTheEdition) {
  lf_processRTVersion(R"({"level":2,"version":"9.0"})");
  EXPECT_TRUE(gv_rtProf.load());
  EXPECT_EQ(gFeedStatus.rtEdition.load(), "RT prof edition: 9.0");
  lf_processRTVersion(R"({"version":"9.1"})");
  EXPECT_FALSE(gv_rtProf.load());
  EXPECT_EQ(gFeedStatus.rtEdition.load(), "RT stnd edition: 9.1");
  gv_rtProf = true;
  lf_processRTVersion(R"({"level":2,"version":)");
  EXPECT_FALSE(gv_rtProf.load());
  EXPECT_EQ(gFeedStatus.rtEdition.load(), "");
  EXPECT_NE(log.text().find("lf_processRTVersion: JSON parse failed: "), std::string::npos);

  // An empty reply, as RealTraffic closing its side gives it: the link stays up.
  test::RtPeer peer(port);
  net::shutdownSend(peer.s);
  gv_rtProf = true;
  waitForClient();
  EXPECT_FALSE(gv_rtProf.load());
  EXPECT_TRUE(gFeedStatus.rtConnected.load());
  EXPECT_EQ(gf_messageArea().errorText, "No RealTraffic version received?");
}

TEST_F(RtLink, PositionsAndTimesGoOutExactlyAndOnlyWhenKnown) {
  test::RtPeer peer(port);
  connectAndWait(peer, R"({"level":2,"version":"9.0"})");
  EXPECT_NE(log.text().find("Waiting for RealTraffic to connect to Orvane ...\nRealTraffic connected\n"), std::string::npos);
  gUserSnapshot.lat = 0.00005;
  gUserSnapshot.lon = 0.00009;
  lf_sendPosition();
  lf_sendSimTime(0);
  gUserSnapshot = frankfurt();
  lf_sendPosition();
  lf_sendSimTime(1718020800);
  EXPECT_EQ(peer.receiveLine(), kFrankfurtQs121);
  EXPECT_EQ(peer.receiveLine(), "Qs123=1718020800000\r\n");
  lf_closeRt();
  EXPECT_EQ(peer.receiveLine(), "exit\r\n");
  EXPECT_EQ(peer.receiveLine(), "");
}

TEST_F(RtLink, ALostLinkRemovesTheLiveAircraftOnceAndTheNextStepOnlyAccepts) {
  test::RtPeer peer(port);
  connectAndWait(peer, R"({"level":2,"version":"9.0"})");
  gUserSnapshot = frankfurt();
  const auto add = [](std::uint32_t hexid, const char* cs, std::int32_t simState, std::uint32_t objectid) {
    LiveAc ac;
    ac.hexid = hexid, ac.cs = cs, ac.simState = simState, ac.objectid = objectid;
    gf_addLiveAc(std::move(ac));
  };
  add(4000001, "DLH1", kActive, 101);
  add(4000002, "DLH2", kAdding2Sim, 0);  // its request still waits
  gLiveAddQueue.emplace_back().callsign = "DLH2";
  add(4000003, "DLH3", kAdding2Sim, 0);  // its request is with the simulator
  add(4000004, "DLH4", kBuffer, 0);
  add(4000005, "DLH5", kRemovingFromSim, 105);

  peer.close();
  // The first send after RealTraffic has gone may still be taken by the system.
  for (int i = 0; i < 100 && gv_rtConnected.load(); ++i) {
    lf_sendPosition();
    std::this_thread::sleep_for(5ms);
  }
  ASSERT_FALSE(gv_rtConnected.load());
  EXPECT_FALSE(gFeedStatus.rtConnected.load());
  EXPECT_EQ(gRemoveQueue, std::deque<std::uint32_t>{101});
  EXPECT_TRUE(gLiveAddQueue.empty());
  ASSERT_EQ(gLiveAc.size(), 3u) << "the cancelled and the buffered one are gone";
  EXPECT_EQ(gLiveAc[1].removeWhenCreated, 1);
  const std::string text = log.text();
  EXPECT_NE(text.find("RealTraffic client socket closed\n"), std::string::npos) << text;
  EXPECT_NE(text.find(" RealTraffic gone? Wait for RealTraffic to re-connect ...\n"), std::string::npos);

  test::RtPeer again(port);
  lf_sendPosition();  // accepts, and sends nothing in this step
  EXPECT_TRUE(gFeedStatus.rtConnected.load());
  EXPECT_TRUE(gv_rtProf.load()) << "no new version request";
  EXPECT_EQ(gRemoveQueue.size(), 1u);
  EXPECT_NE(log.text().find(" RealTraffic re-connected\n"), std::string::npos);
  gUserSnapshot.groundVelocity = 0;
  lf_sendPosition();
  EXPECT_EQ(again.receiveLine(), "Qs121=5000;10000;4.712389;364200;0;0.873246;0.149585\r\n");
}

TEST_F(RtLink, ClosingWhileTheVersionIsAwaitedNeitherConnectsNorComplains) {
  test::RtPeer peer(port);
  auto waiting = std::async(std::launch::async, waitForClient);
  ASSERT_EQ(peer.receiveLine(), "Qs999=version\r\n");  // the link waits for the reply now
  gv_userClosing = true;
  requestStop(ExitReason::UserClosedSim, 0);
  lf_closeRt();
  ASSERT_EQ(waiting.wait_for(10s), std::future_status::ready);
  EXPECT_EQ(log.text().find("RealTraffic connected"), std::string::npos) << log.text();
  EXPECT_EQ(gf_messageArea().errorText, "");
  EXPECT_FALSE(gFeedStatus.rtConnected.load());
}

TEST_F(RtLink, ClosingFreesABlockedAcceptAndATakenPortIsReported) {
  try {
    lf_openRtServer(std::to_string(port));
    ADD_FAILURE() << "the port is taken";
  } catch (const std::runtime_error& e) {
#if defined(_WIN32)
    // Winsock, as Wine serves it, answers a second SO_REUSEADDR bind to a listening port with
    // access denied.
    EXPECT_EQ(std::string(e.what()), fmt::format("Bind failed at port {} with error 10013 Permission denied", port));
#else
    EXPECT_EQ(std::string(e.what()), fmt::format("Bind failed at port {} with error 10048 Address already in use", port));
#endif
  }
  auto waiting = std::async(std::launch::async, lf_acceptRt);
  std::this_thread::sleep_for(50ms);  // most likely inside accept by now; either way it must end
  lf_closeRt();
  ASSERT_EQ(waiting.wait_for(10s), std::future_status::ready);
  EXPECT_FALSE(waiting.get());
}

}  // namespace
}  // namespace orv
