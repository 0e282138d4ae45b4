#pragma once
// Desktop shell operations: known folders, opening a folder in the file manager,
// a message box, and the facts about protected install folders and elevation.
// Each returns failure where the platform has no such thing; callers log it.
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace orv::desktop {

enum class KnownFolder { RoamingAppData, LocalAppData };

// Empty optional when the folder cannot be found.
std::optional<std::filesystem::path> knownFolder(KnownFolder folder);

// Opens a folder in the file manager; true when the shell accepted it.
bool openFolder(const std::filesystem::path& folder);

// Shows a modal message box; false when there is no desktop to show it on.
bool messageBox(std::string_view text, std::string_view title);

// The folders that ordinary users cannot write to (Program Files on Windows).
std::vector<std::filesystem::path> protectedFolders();

// The process runs with administrator rights.
bool processElevated();

// The program's own file; empty when the platform cannot tell.
std::filesystem::path executablePath();

// A fine timer resolution (1 ms) for the engine's 10 ms loop while it runs; Linux timers are
// fine already, Windows needs to be asked.
void beginTimerResolution();
void endTimerResolution();

// One program per user: holds the lock named `name` in `folder` for its lifetime, unless
// another holder has it (a named mutex on Windows, an advisory file lock here).
class SingleInstance {
 public:
  SingleInstance(const std::filesystem::path& folder, std::string_view name);
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;
  // False only when another holder has the lock; a lock that can't be made at all
  // doesn't keep the program from running.
  bool held() const { return held_; }

 private:
  std::intptr_t handle_ = -1;  // a file descriptor here, a mutex handle on Windows
  bool held_ = true;
};

}  // namespace orv::desktop
