#include "simlink_fixture.h"

#include <fmt/format.h>

#include <sstream>
#include <thread>

#include "engine/sim_notice_queue.h"
#include "foundation/parameter_store.h"
#include "foundation/run_flags.h"
#include "simlink/object_requests.h"
#include "simlink/sim_client.h"
#include "simlink/sim_queues.h"

namespace orv::test {

using namespace std::chrono_literals;

std::string scenarioJson(std::string_view extra, std::string_view user) {
  return fmt::format(R"({{"simulator": 2020, "applicationVersion": [11, 0, 282174, 999], "frameRate": 10,
    "terrainElevationFt": 364, "user": {{{}}},
    "titles": ["Airbus A320 Lufthansa", {{"title": "Boeing 737-800 Ryanair", "model": "B738"}},
               {{"title": "Airbus H145 Christoph", "model": "H145"}}]{}{}}})",
                     user, extra.empty() ? "" : ", ", extra);
}

namespace {

// The fields of a CSV line; a quoted field may hold commas and doubled quotes.
std::vector<std::string> csvFields(const std::string& line) {
  std::vector<std::string> out(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (quoted) {
      if (c != '"') {
        out.back() += c;
      } else if (i + 1 < line.size() && line[i + 1] == '"') {
        out.back() += '"';
        ++i;
      } else {
        quoted = false;
      }
    } else if (c == '"') {
      quoted = true;
    } else if (c == ',') {
      out.emplace_back();
    } else if (c != '\r') {
      out.back() += c;
    }
  }
  return out;
}

}  // namespace

std::vector<TraceRow> traceRows(const std::filesystem::path& file, const std::string& callsign) {
  std::istringstream lines(readFile(file));
  std::vector<TraceRow> rows;
  std::string line;
  std::getline(lines, line);  // the header
  while (std::getline(lines, line)) {
    const std::vector<std::string> f = csvFields(line);
    if (f.size() < 21 || f[3] != callsign) continue;
    TraceRow r;
    r.time = std::stod(f[0]);
    r.frame = std::stoull(f[1]);
    r.objectId = static_cast<std::uint32_t>(std::stoul(f[2]));
    r.callsign = f[3];
    r.title = f[4];
    r.lat = std::stod(f[5]), r.lon = std::stod(f[6]), r.alt = std::stod(f[7]), r.agl = std::stod(f[8]);
    r.pitch = std::stod(f[9]), r.bank = std::stod(f[10]), r.heading = std::stod(f[11]);
    r.onGround = f[12] == "1";
    r.lights = static_cast<std::uint32_t>(std::stoul(f[13]));
    r.flaps = std::stod(f[14]);
    r.gearDown = f[15] == "1";
    r.spoilers = std::stod(f[16]), r.throttle = std::stod(f[17]);
    r.enginesOn = f[18] == "1";
    r.vsFps = std::stod(f[19]), r.tasKt = std::stod(f[20]);
    rows.push_back(std::move(r));
  }
  return rows;
}

void SimLinkTest::SetUp() {
  standin::reset();
  gf_setWindow(&window);
  previousDir = std::filesystem::current_path();
  std::filesystem::current_path(work.path());
  gf_writeParameters(true);
}

void SimLinkTest::TearDown() {
  lf_joinSimClient();
  standin::reset();
  std::filesystem::current_path(previousDir);
  gf_setWindow(nullptr);
}

void SimLinkTest::startClient(std::string_view scenario) {
  standin::loadScenarioText(scenario);
  standin::start(standin::Clock::Stepped);
  lf_startSimClient();
}

void SimLinkTest::connect(std::string_view scenario) {
  startClient(scenario);
  ASSERT_TRUE(standin::waitForSession("Orvane"));
  settle();
}

void SimLinkTest::settle() { ASSERT_TRUE(standin::waitUntilIdle(10s)); }

void SimLinkTest::frames(int count) {
  for (int i = 0; i < count; ++i) {
    standin::advanceFrames(1);
    settle();
  }
}

std::uint32_t SimLinkTest::createOwn(std::uint32_t hexid, const std::string& callsign, std::string_view title,
                                     double altitudeFt) {
  simQueueCreate(AddRequest{50.04, 8.57, altitudeFt, 0, 0, 250, 0, 0, callsign, title, hexid});
  frames(3);  // the create call, the object's existence, ObjectAdded
  lf_requestAircraftInRange();
  settle();
  const auto object = standin::objectByAtcId(callsign);
  return object ? object->objectId : 0;
}

std::vector<SimNotice> SimLinkTest::takeNotices() {
  return gSimNotices.takeAll();
}

bool SimLinkTest::waitForStop() {
  // The client ends the run after its dispatch has returned, so this polls.
  for (int i = 0; i < 500 && !gv_stopRun.load(); ++i) std::this_thread::sleep_for(10ms);
  return gv_stopRun.load();
}

}  // namespace orv::test
