// The desktop shell on Win32: known folders, Explorer, message boxes, token elevation, the
// multimedia timer and a named mutex for the single instance.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#include <knownfolders.h>
#include <shellapi.h>
#include <shlobj.h>
#include <timeapi.h>

#include <cstdint>
#include <cstdlib>
#include <cwctype>
#include <string>

#include "platform/desktop/desktop.h"

namespace orv::desktop {

namespace {

std::wstring wide(std::string_view utf8) {
  if (utf8.empty()) return {};
  const int size = static_cast<int>(utf8.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
  std::wstring out(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, out.data(), length);
  return out;
}

// The variable that overrides a folder, so that tests never touch a real user's files.
std::optional<std::filesystem::path> fromEnv(const wchar_t* name) {
  const wchar_t* v = _wgetenv(name);
  if (v && *v) return std::filesystem::path(v);
  return std::nullopt;
}

std::optional<std::filesystem::path> shellFolder(REFKNOWNFOLDERID id) {
  PWSTR text = nullptr;
  std::optional<std::filesystem::path> result;
  if (SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &text)) && text && *text) {
    result = std::filesystem::path(text);
  }
  CoTaskMemFree(text);
  return result;
}

// A service or a locked-down session has no visible window station: a box there would wait
// for a click that never comes.
bool desktopVisible() {
  USEROBJECTFLAGS flags{};
  DWORD needed = 0;
  HWINSTA station = GetProcessWindowStation();
  if (!station || !GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, &needed)) return false;
  return (flags.dwFlags & WSF_VISIBLE) != 0;
}

// Mutex names are global to the session and may not hold a backslash; the folder becomes a
// fixed hash of its lower-case text, so that each user folder has its own lock, as on Linux.
std::wstring mutexName(const std::filesystem::path& folder, std::string_view name) {
  std::uint64_t hash = 14695981039346656037ull;
  const std::filesystem::path normal = folder.lexically_normal();
  for (wchar_t c : normal.native()) {
    hash ^= static_cast<std::uint64_t>(std::towlower(static_cast<wint_t>(c)));
    hash *= 1099511628211ull;
  }
  wchar_t digits[17] = {};
  for (int i = 15; i >= 0; --i, hash >>= 4) digits[i] = L"0123456789abcdef"[hash & 0xf];
  return L"Local\\" + wide(name) + L"-" + digits;
}

}  // namespace

std::optional<std::filesystem::path> knownFolder(KnownFolder folder) {
  switch (folder) {
    case KnownFolder::RoamingAppData:
      if (auto p = fromEnv(L"ORVANE_APPDATA")) return p;
      return shellFolder(FOLDERID_RoamingAppData);
    case KnownFolder::LocalAppData:
      if (auto p = fromEnv(L"ORVANE_LOCALAPPDATA")) return p;
      return shellFolder(FOLDERID_LocalAppData);
  }
  return std::nullopt;
}

bool openFolder(const std::filesystem::path& folder) {
  // ShellExecute answers with a number above 32 on success.
  const auto result = reinterpret_cast<std::intptr_t>(
      ShellExecuteW(nullptr, L"open", folder.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  return result > 32;
}

bool messageBox(std::string_view text, std::string_view title) {
  if (!desktopVisible()) return false;
  return MessageBoxW(nullptr, wide(text).c_str(), wide(title).c_str(), MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND) > 0;
}

std::vector<std::filesystem::path> protectedFolders() {
  std::vector<std::filesystem::path> folders;
  for (REFKNOWNFOLDERID id : {FOLDERID_ProgramFiles, FOLDERID_ProgramFilesX86}) {
    if (auto p = shellFolder(id)) folders.push_back(*p);
  }
  return folders;
}

bool processElevated() {
  HANDLE token = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return false;
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  const bool known = GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size) != 0;
  CloseHandle(token);
  return known && elevation.TokenIsElevated != 0;
}

std::filesystem::path executablePath() {
  std::wstring buffer(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) return {};
    if (length < buffer.size()) {
      buffer.resize(length);
      return std::filesystem::path(buffer);
    }
    buffer.resize(buffer.size() * 2);
  }
}

void beginTimerResolution() { timeBeginPeriod(1); }
void endTimerResolution() { timeEndPeriod(1); }

SingleInstance::SingleInstance(const std::filesystem::path& folder, std::string_view name) {
  HANDLE mutex = CreateMutexW(nullptr, FALSE, mutexName(folder, name).c_str());
  if (!mutex) return;
  // The name exists already when another holder has it, within this process too.
  if (GetLastError() == ERROR_ALREADY_EXISTS) {
    CloseHandle(mutex);
    held_ = false;
    return;
  }
  handle_ = reinterpret_cast<std::intptr_t>(mutex);
}

SingleInstance::~SingleInstance() {
  if (handle_ != -1) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

}  // namespace orv::desktop
