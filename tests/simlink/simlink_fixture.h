#pragma once
// The real SimClient thread against the stand-in simulator on its stepped clock, with private
// folders and a captured log for each test (the run state's reset gives fresh run flags). Frames advance one at a
// time and the client takes everything of a frame before the next, so that what a test
// sees is what the program did.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "engine/live_aircraft.h"
#include "platform/simconnect/standin_control.h"
#include "platform/window/headless_window.h"
#include "test_support.h"

namespace orv::test {

inline constexpr std::string_view kDefaultUser =
    R"("title": "Airbus A320 Neo Asobo", "atcModel": "A20N", "latitude": 50.0379, "longitude": 8.5622)";
// A scenario at Frankfurt, ten frames a second, with two creatable titles; `extra` adds keys.
std::string scenarioJson(std::string_view extra = {}, std::string_view user = kDefaultUser);

// One line of the stand-in's trace: an object as the simulator had it at the end of a frame.
struct TraceRow {
  double time = 0;
  std::uint64_t frame = 0;
  std::uint32_t objectId = 0;
  std::string callsign, title;
  double lat = 0, lon = 0, alt = 0, agl = 0;
  double pitch = 0, bank = 0, heading = 0;  // degrees, the simulator's signs: nose up is negative
  bool onGround = false;
  std::uint32_t lights = 0;
  double flaps = 0;
  bool gearDown = false;
  double spoilers = 0, throttle = 0;  // percent; a reversed throttle is negative
  bool enginesOn = false;
  double vsFps = 0, tasKt = 0;
};

// The rows of the aircraft with this callsign, in the order of the file.
std::vector<TraceRow> traceRows(const std::filesystem::path& file, const std::string& callsign);

class SimLinkTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Starts simulator and SimClient; connect() also waits for the open session's first records.
  void startClient(std::string_view scenario = scenarioJson());
  void connect(std::string_view scenario = scenarioJson());
  void frames(int count = 1);
  void settle();  // the client has taken every record sent so far
  // Creation of an aircraft until the client recognised it; its object id, 0 if none.
  std::uint32_t createOwn(std::uint32_t hexid, const std::string& callsign,
                          std::string_view title = "Airbus A320 Lufthansa", double altitudeFt = 3000);
  std::vector<SimNotice> takeNotices();
  bool waitForStop();  // a few seconds at most

  AppDataOverride appData;
  TempDir work;
  HeadlessWindow window;
  LogCapture log;
  std::filesystem::path previousDir;
};

}  // namespace orv::test
