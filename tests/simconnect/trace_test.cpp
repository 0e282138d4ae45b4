// The CSV trace of the stand-in, line by line as a later analysis reads it.
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <map>
#include <thread>
#include <sstream>

#include "standin_fixture.h"
#include "test_support.h"

namespace orv::test {
namespace {

using TraceTest = StandinTest;

TEST_F(TraceTest, EveryObjectIsWrittenEveryNthFrame) {
  TempDir dir;
  HANDLE h = startWith(R"({"terrainElevationFt": 50, "titles": [{"title": "Boeing 737-800 \"Sky\", Blue", "model": "B738"}]})");
  SimConnect_AICreateNonATCAircraft(h, "Boeing 737-800 \"Sky\", Blue", "SKY1", at(50.5, 8.25, 2500, false, 90), 104);
  SimConnect_MapClientEventToSimEvent(h, 217, "FLAPS_SET");
  standin::advanceFrames(1);
  const DWORD id = standin::objectByAtcId("SKY1")->objectId;
  SimConnect_TransmitClientEvent(h, id, 217, 16383, 301, 0);

  standin::startTrace(dir / "trace.csv", 2);
  standin::advanceFrames(4);
  standin::stopTrace();
  standin::advanceFrames(2);

  std::istringstream in(readFile(dir / "trace.csv"));
  std::vector<std::string> rows;
  for (std::string line; std::getline(in, line);) rows.push_back(line);
  ASSERT_EQ(rows.size(), 1u + 2 * 2);  // header, then frames 2 and 4 with two objects each
  EXPECT_EQ(rows[0].rfind("time_s,frame,object_id,callsign,title,latitude,", 0), 0u) << rows[0];
  EXPECT_EQ(std::count(rows[0].begin(), rows[0].end(), ','), 20);
  EXPECT_EQ(rows[1].rfind(fmt::format("0.067,2,{},", standin::userObjectId()), 0), 0u) << rows[1];
  // A title with a comma and quotes is one quoted field; flaps are in percent.
  EXPECT_EQ(rows[4], fmt::format("0.133,4,{},SKY1,\"Boeing 737-800 \"\"Sky\"\", Blue\",50.50000000,8.25000000,2500.00,"
                                 "2450.00,0.000,0.000,90.000,0,0,100.0,1,0.0,0.0,0,0.00,0.0",
                                 id));

  EXPECT_THROW(standin::startTrace(dir / "no" / "such" / "folder.csv"), std::runtime_error);
}

// A scenario that names a trace has it from the first frame, in a folder made for it.
TEST_F(TraceTest, AScenarioTracesFromItsStart) {
  try {
    standin::loadScenarioText(R"({"traceEveryFrames": 0})", "t.json");
    ADD_FAILURE() << "a trace needs at least every frame";
  } catch (const std::exception& e) {
    EXPECT_NE(std::string(e.what()).find("traceEveryFrames"), std::string::npos) << e.what();
  }
  TempDir dir;
  const auto file = dir / "output" / "trace.csv";
  startWith(fmt::format(R"({{"traceFile": {}, "traceEveryFrames": 3}})", nlohmann::json(file.string()).dump()));
  standin::advanceFrames(7);
  standin::stopTrace();
  std::istringstream in(readFile(file));
  std::vector<std::string> rows;
  for (std::string line; std::getline(in, line);) rows.push_back(line);
  ASSERT_EQ(rows.size(), 3u) << "header, frames 3 and 6 with the user alone";
  EXPECT_EQ(rows[2].rfind(fmt::format("0.200,6,{},", standin::userObjectId()), 0), 0u) << rows[2];
}

// A replay ten times faster than real time gives the trace of real time, row for row: the
// frames, and every event scripted by simulated time, are the same; only the wall clock differs.
TEST(TraceTimeScale, TenTimesFasterTracesTheSameAsRealTime) {
  TempDir dir;
  std::map<double, std::vector<std::string>> traces;
  for (const double scale : {1.0, 10.0}) {
    standin::reset();
    const std::string trace = (dir / fmt::format("trace{}.csv", scale)).string();
    standin::loadScenarioText(fmt::format(R"({{"frameRate": 30, "traceFile": {}, "traceEveryFrames": 3,
      "user": {{"latitude": 50.0, "longitude": 8.5, "headingDeg": 90, "groundSpeedKt": 20}},
      "events": [{{"at": 0.5, "type": "addAircraft", "title": "Asobo Traffic", "atcId": "AS-GEN",
                   "latitude": 50.01, "longitude": 8.51, "altitudeFt": 2400, "headingDeg": 70}},
                 {{"at": 1.0, "type": "moveUser", "latitude": 50.02, "longitude": 8.52, "onGround": true}}]}})",
                                          nlohmann::json(trace).dump()));
    const auto begin = std::chrono::steady_clock::now();
    standin::start(standin::Clock::RealTime, scale);
    while (standin::simTime() < 2.0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    standin::stop();
    standin::stopTrace();
    // Two simulated seconds take two wall seconds in real time, a fifth of one at ten times.
    EXPECT_NEAR(wall, 2.0 / scale, 0.5 / scale + 0.05) << scale;
    std::istringstream in(readFile(trace));
    for (std::string line; std::getline(in, line);) traces[scale].push_back(line);
  }
  standin::reset();
  // The faster run stopped at the same simulated time, give or take the frames of one poll.
  const std::size_t rows = std::min(traces[1.0].size(), traces[10.0].size());
  ASSERT_GT(rows, 30u);
  for (std::size_t i = 0; i < rows; ++i) EXPECT_EQ(traces[1.0][i], traces[10.0][i]) << "row " << i;
}

}  // namespace
}  // namespace orv::test
