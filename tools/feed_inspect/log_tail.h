#pragma once
// The log sent to a private file, read back piece by piece: what was written since the last look.
#include <cstdint>
#include <filesystem>
#include <string>

namespace orv::inspect {

class LogTail {
 public:
  // Opens the log in a fresh folder under the system's temporary folder.
  LogTail();
  // Closes the log and removes the folder.
  ~LogTail();
  LogTail(const LogTail&) = delete;
  LogTail& operator=(const LogTail&) = delete;

  // The lines written since the last call (or since the log's header line), without the last line end.
  std::string take();

 private:
  std::filesystem::path dir_;
  std::filesystem::path file_;
  std::uintmax_t offset_ = 0;
};

}  // namespace orv::inspect
