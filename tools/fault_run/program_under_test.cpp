#include "program_under_test.h"

#include <fmt/format.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "app/process_entry.h"
#include "data_file_encrypt.h"
#include "feed/feed_readers.h"
#include "platform/window/window_layer.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace orv::faultrun {

namespace {

std::string readText(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

ProgramUnderTest::ProgramUnderTest() : previousFolder_(fs::current_path()) {
  std::string pattern = (fs::temp_directory_path() / "orvane-fault-run-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a working folder");
  folder_ = pattern;
  fs::create_directories(folder_ / "docs");
  fs::create_directories(folder_ / "input");
  fs::create_directories(folder_ / "appdata");
  const std::string dbase = readText(kSourceFolder / "tests" / "data" / "dbase" / "eddf_dbase.xml");
  if (dbase.empty()) throw std::runtime_error("tests/data/dbase/eddf_dbase.xml is missing");
  std::ofstream(folder_ / "input" / "dbase.enc", std::ios::binary) << gf_encryptBytes(gf_dataKey(), dbase);
  // The user's liveries, as a scan would have left them.
  const std::string liveries = readText(kSourceFolder / "tests" / "data" / "liveries" / "eddf_liveries.xml");
  if (liveries.empty()) throw std::runtime_error("tests/data/liveries/eddf_liveries.xml is missing");
  fs::create_directories(folder_ / "output");
  std::ofstream(folder_ / "output" / "LiveriesScanned.xml", std::ios::binary) << liveries;
  // The catalogue of airports and the list of all airport codes.
  const fs::path airportData = kSourceFolder / "tests" / "data" / "airports";
  const std::string catalogue = readText(airportData / "eddf_catalogue.xml");
  if (catalogue.empty()) throw std::runtime_error("tests/data/airports/eddf_catalogue.xml is missing");
  std::ofstream(folder_ / "input" / "airports.enc", std::ios::binary) << gf_encryptBytes(gf_dataKey(), catalogue);
  std::ofstream(folder_ / "input" / "ICAO_airports.txt", std::ios::binary) << readText(airportData / "ICAO_airports.txt");
  if (const char* v = std::getenv("ORVANE_APPDATA")) {
    previousAppData_ = v;
    hadAppData_ = true;
  }
  setenv("ORVANE_APPDATA", (folder_ / "appdata").c_str(), 1);
  gv_trafficPort = 0;
  gv_qnhPort = 0;
}

ProgramUnderTest::~ProgramUnderTest() {
  if (result_.valid()) close();
  fs::current_path(previousFolder_);
  if (hadAppData_)
    setenv("ORVANE_APPDATA", previousAppData_.c_str(), 1);
  else
    unsetenv("ORVANE_APPDATA");
  std::error_code ec;
  if (!keep_) fs::remove_all(folder_, ec);
}

void ProgramUnderTest::start(const std::vector<std::string>& args) {
  result_ = std::async(std::launch::async, [this, args] { return lf_runProcess(folder_, args); });
}

bool ProgramUnderTest::waitForStage(RunStage stage, std::chrono::seconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (gv_runStage.load() != stage) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

bool ProgramUnderTest::waitForReaders(std::chrono::seconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (gTrafficReader.boundPort.load() == 0 || gQnhReader.boundPort.load() == 0) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

int ProgramUnderTest::close() {
  gf_window().post(WM_CLOSE);
  if (result_.wait_for(60s) != std::future_status::ready) throw std::runtime_error("the program did not end");
  return result_.get();
}

std::string ProgramUnderTest::log() const { return readText(folder_ / "Log.txt"); }

namespace {

template <class Test>
std::size_t countMatching(const std::string& log, Test&& test) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < log.size();) {
    const auto lf = log.find('\n', at);
    const std::string_view line = std::string_view(log).substr(at, lf == std::string::npos ? lf : lf - at);
    if (test(line)) ++count;
    if (lf == std::string::npos) break;
    at = lf + 1;
  }
  return count;
}

}  // namespace

std::size_t countLines(const std::string& log, std::string_view start) {
  return countMatching(log, [&](std::string_view line) { return line.starts_with(start); });
}

std::size_t countLinesWith(const std::string& log, std::string_view text) {
  return countMatching(log, [&](std::string_view line) { return line.find(text) != std::string_view::npos; });
}

}  // namespace orv::faultrun
