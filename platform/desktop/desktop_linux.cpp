#include <fcntl.h>
#include <cerrno>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/desktop/desktop.h"

namespace orv::desktop {

namespace {
// The variable that overrides a folder, so that tests never touch a real user's files.
std::optional<std::filesystem::path> fromEnv(const char* name) {
  const char* v = std::getenv(name);
  if (v && *v) return std::filesystem::path(v);
  return std::nullopt;
}

std::optional<std::filesystem::path> xdg(const char* variable, const char* fallbackBelowHome) {
  if (auto p = fromEnv(variable)) return p;
  if (auto home = fromEnv("HOME")) return *home / fallbackBelowHome;
  return std::nullopt;
}
}  // namespace

std::optional<std::filesystem::path> knownFolder(KnownFolder folder) {
  switch (folder) {
    case KnownFolder::RoamingAppData:
      if (auto p = fromEnv("ORVANE_APPDATA")) return p;
      return xdg("XDG_CONFIG_HOME", ".config");
    case KnownFolder::LocalAppData:
      if (auto p = fromEnv("ORVANE_LOCALAPPDATA")) return p;
      return xdg("XDG_DATA_HOME", ".local/share");
  }
  return std::nullopt;
}

bool openFolder(const std::filesystem::path& folder) {
  // Only with a desktop session; xdg-open would otherwise wait for a browser that never comes.
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) return false;
  const pid_t pid = fork();
  if (pid < 0) return false;
  if (pid == 0) {
    execlp("xdg-open", "xdg-open", folder.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  int status = 0;
  if (waitpid(pid, &status, 0) < 0) return false;
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool messageBox(std::string_view, std::string_view) { return false; }

std::vector<std::filesystem::path> protectedFolders() { return {}; }

bool processElevated() { return geteuid() == 0; }

std::filesystem::path executablePath() {
  std::error_code ec;
  auto p = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::filesystem::path() : p;
}

void beginTimerResolution() {}
void endTimerResolution() {}

SingleInstance::SingleInstance(const std::filesystem::path& folder, std::string_view name) {
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);
  const std::filesystem::path file = folder / (std::string(name) + ".lock");
  const int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (fd < 0) return;
  // flock belongs to the open file: a second holder fails even within this process.
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    held_ = errno != EWOULDBLOCK;
    ::close(fd);
    return;
  }
  handle_ = fd;
}

SingleInstance::~SingleInstance() {
  if (handle_ >= 0) ::close(static_cast<int>(handle_));
}

}  // namespace orv::desktop
