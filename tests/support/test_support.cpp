#include "test_support.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "foundation/log.h"

namespace fs = std::filesystem;

namespace orv::test {

TempDir::TempDir() {
  static std::mt19937_64 rng{std::random_device{}()};
  for (int attempt = 0; attempt < 100; ++attempt) {
    fs::path candidate = fs::temp_directory_path() / ("orvane-test-" + std::to_string(rng()));
    if (fs::create_directory(candidate)) {
      path_ = candidate;
      return;
    }
  }
  throw std::runtime_error("cannot create a temporary folder");
}

TempDir::~TempDir() {
  std::error_code ec;
  fs::remove_all(path_, ec);
}

LogCapture::LogCapture() : file_(dir_ / "Log.txt") { gf_openLog(file_); }

LogCapture::~LogCapture() { gf_closeLog(); }

std::string LogCapture::text() const {
  gf_flushLog();
  return readFile(file_);
}

AppDataOverride::AppDataOverride() {
  if (const char* v = std::getenv("ORVANE_APPDATA")) {
    previous_ = v;
    hadPrevious_ = true;
  }
  setEnv("ORVANE_APPDATA", dir_.path().string());
}

AppDataOverride::~AppDataOverride() {
  if (hadPrevious_)
    setEnv("ORVANE_APPDATA", previous_);
  else
    unsetEnv("ORVANE_APPDATA");
}

void setEnv(const char* name, const std::string& value) {
#if defined(_WIN32)
  _putenv_s(name, value.c_str());
#else
  ::setenv(name, value.c_str(), 1);
#endif
}

void unsetEnv(const char* name) {
#if defined(_WIN32)
  _putenv_s(name, "");  // an empty value removes the variable
#else
  ::unsetenv(name);
#endif
}

std::string shown(std::string_view genericPath) {
  return std::filesystem::path(genericPath).make_preferred().string();
}

std::string readFile(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

void writeFile(const fs::path& file, std::string_view bytes) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace orv::test
