#pragma once
// Log.txt: one process-wide buffered stream with three kinds of line.
// Only error lines flush; writes to a failed stream are skipped silently.
#include <fmt/format.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace orv {

// Keeps three generations of the file, opens it anew and writes the header line.
// Throws std::runtime_error("Failed to write file <path>") when it cannot be opened.
void gf_openLog(const std::filesystem::path& file);
void gf_closeLog();
std::filesystem::path gf_logPath();

void gf_log(std::string_view text);
void gf_logError(std::string_view text);
void gf_logIndented(std::string_view text);
// Plain line, only while neither stop flag is set (echo of settings).
void gf_logIfRunning(std::string_view text);
void gf_flushLog();

template <class A0, class... A>
void gf_log(fmt::format_string<A0, A...> f, A0&& a0, A&&... a) {
  gf_log(std::string_view(fmt::format(f, std::forward<A0>(a0), std::forward<A>(a)...)));
}
template <class A0, class... A>
void gf_logError(fmt::format_string<A0, A...> f, A0&& a0, A&&... a) {
  gf_logError(std::string_view(fmt::format(f, std::forward<A0>(a0), std::forward<A>(a)...)));
}
template <class A0, class... A>
void gf_logIndented(fmt::format_string<A0, A...> f, A0&& a0, A&&... a) {
  gf_logIndented(std::string_view(fmt::format(f, std::forward<A0>(a0), std::forward<A>(a)...)));
}
template <class A0, class... A>
void gf_logIfRunning(fmt::format_string<A0, A...> f, A0&& a0, A&&... a) {
  gf_logIfRunning(std::string_view(fmt::format(f, std::forward<A0>(a0), std::forward<A>(a)...)));
}

// A line of asterisks, with an optional title in its middle.
std::string gf_banner(int width, int extra, bool leadingNewline, bool trailingNewline, std::string_view text = {});

// Opens and closes a titled block of the log; both banner lines are 80 characters wide.
void gf_logSectionStart(std::string_view title);
void gf_logSectionEnd(std::string_view title);

}  // namespace orv
