#pragma once
// Orvane's whole process, run inside the fault tool as main() runs it: in a working folder of
// its own with the small dbase of the tests, its user folder in there too, its two readers on
// free ports, and the stand-in simulator on its default scenario.
#include <chrono>
#include <filesystem>
#include <future>
#include <string>
#include <vector>

#include "app/run_stage.h"

namespace orv::faultrun {

class ProgramUnderTest {
 public:
  ProgramUnderTest();
  // Closes a program still running; removes the folder unless keep() was called.
  ~ProgramUnderTest();
  ProgramUnderTest(const ProgramUnderTest&) = delete;
  ProgramUnderTest& operator=(const ProgramUnderTest&) = delete;

  void start(const std::vector<std::string>& args = {});
  // False when the stage wasn't reached in time.
  bool waitForStage(RunStage stage, std::chrono::seconds limit = std::chrono::seconds(60));
  // Both readers are bound and read; false when not in time.
  bool waitForReaders(std::chrono::seconds limit = std::chrono::seconds(60));
  // Presses the window's close button and waits for the process to end; its exit code.
  int close();

  // Log.txt as it stands.
  std::string log() const;
  const std::filesystem::path& folder() const { return folder_; }
  void keep() { keep_ = true; }

 private:
  std::filesystem::path folder_;
  std::filesystem::path previousFolder_;
  std::string previousAppData_;
  bool hadAppData_ = false;
  bool keep_ = false;
  std::future<int> result_;
};

// The count of lines of a log that begin with the text, and of those that hold it anywhere.
std::size_t countLines(const std::string& log, std::string_view start);
std::size_t countLinesWith(const std::string& log, std::string_view text);

inline const std::filesystem::path kSourceFolder = ORV_SOURCE_DIR;

}  // namespace orv::faultrun
