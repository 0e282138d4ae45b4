#include "foundation/log.h"

#include <ctime>
#include <fstream>
#include <mutex>
#include <stdexcept>

#include "foundation/generations.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/time_text.h"

namespace orv {

namespace {
struct LogStream {
  std::mutex mutex;  // the innermost lock of the program: held only for the write
  std::ofstream out;
  std::filesystem::path path;
};

LogStream& logStream() {
  static LogStream s;
  return s;
}

void write(std::string_view prefix, std::string_view text, bool flush) {
  LogStream& s = logStream();
  std::lock_guard lock(s.mutex);
  if (!s.out.is_open() || !s.out.good()) return;
  s.out << prefix << text << '\n';
  if (flush) s.out.flush();
}
}  // namespace

void gf_openLog(const std::filesystem::path& file) {
  gf_saveUpto3GenerationsOf(file);
  {
    LogStream& s = logStream();
    std::lock_guard lock(s.mutex);
    s.out.close();
    s.out.clear();
    // Binary, so that a line end is a single line feed on every platform.
    s.out.open(file, std::ios::binary | std::ios::trunc);
    if (!s.out.is_open()) throw std::runtime_error("Failed to write file " + file.string());
    s.path = file;
  }
  gf_log("{} (utc) {} version {} for {}", gf_longTimeText(std::time(nullptr)), kProgramName, kRunningVersion.text(),
         kSimulators);
}

void gf_closeLog() {
  LogStream& s = logStream();
  std::lock_guard lock(s.mutex);
  s.out.close();
}

std::filesystem::path gf_logPath() {
  LogStream& s = logStream();
  std::lock_guard lock(s.mutex);
  return s.path;
}

void gf_log(std::string_view text) { write({}, text, false); }
void gf_logError(std::string_view text) { write("==> ", text, true); }
void gf_logIndented(std::string_view text) { write("          ", text, false); }

void gf_logIfRunning(std::string_view text) {
  if (!gf_stopping()) gf_log(text);
}

void gf_flushLog() {
  LogStream& s = logStream();
  std::lock_guard lock(s.mutex);
  if (s.out.is_open() && s.out.good()) s.out.flush();
}

std::string gf_banner(int width, int extra, bool leadingNewline, bool trailingNewline, std::string_view text) {
  int size = width + extra;
  if (size % 2 != 0) ++size;
  std::string line;
  if (leadingNewline) line += '\n';
  if (text.empty()) {
    line.append(static_cast<std::size_t>(std::max(size, 0)), '*');
  } else if (size > static_cast<int>(text.size()) + 2) {
    const auto half = static_cast<std::size_t>(size / 2 - 1);
    line.append(half, '*').append(" ").append(text).append(" ").append(half, '*');
  } else {
    line += text;
  }
  if (trailingNewline) line += '\n';
  return line;
}

void gf_logSectionStart(std::string_view title) {
  gf_log(gf_banner(80 - static_cast<int>(title.size()), 0, true, false, title));
}

void gf_logSectionEnd(std::string_view title) {
  gf_log(gf_banner(80 - static_cast<int>(title.size()), static_cast<int>(title.size()), false, true));
}

}  // namespace orv
