#pragma once
// Shared fixtures of the tests: private folders, a captured log, file helpers, waiting for
// another thread.
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace orv::test {

// A fresh folder under the system's temporary folder, removed with everything in it.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

// Sends the log to a file of its own for the life of the object.
class LogCapture {
 public:
  LogCapture();
  ~LogCapture();
  // Everything written so far (flushes first).
  std::string text() const;
  const std::filesystem::path& file() const { return file_; }

 private:
  TempDir dir_;
  std::filesystem::path file_;
};

// Points the user's AppData folder at a private folder for the life of the object.
class AppDataOverride {
 public:
  AppDataOverride();
  ~AppDataOverride();
  const std::filesystem::path& path() const { return dir_.path(); }

 private:
  TempDir dir_;
  std::string previous_;
  bool hadPrevious_ = false;
};

// The resets of the run state of the subsystems that a test binary links, called before every
// test. Each test folder defines it in its run_state_fixture.cpp.
void resetRunState();

// Environment variables of this process, on POSIX and on Windows alike.
void setEnv(const char* name, const std::string& value);
void unsetEnv(const char* name);

// A path written with '/' as the program shows it on this system.
std::string shown(std::string_view genericPath);

std::string readFile(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, std::string_view bytes);

// Polls the condition until it holds; false after the limit, so that a fault fails the test
// instead of hanging it.
bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(10));

}  // namespace orv::test
