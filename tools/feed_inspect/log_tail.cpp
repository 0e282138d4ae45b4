#include "log_tail.h"

#include <fmt/format.h>

#include <fstream>
#include <random>
#include <stdexcept>

#include "foundation/log.h"

namespace orv::inspect {

namespace {

std::filesystem::path freshFolder() {
  std::random_device seed;
  std::mt19937_64 random(seed());
  const auto base = std::filesystem::temp_directory_path();
  for (int attempt = 0; attempt < 100; ++attempt) {
    auto dir = base / fmt::format("feed_inspect-{:016x}", random());
    if (std::filesystem::create_directory(dir)) return dir;
  }
  throw std::runtime_error(fmt::format("no folder of its own under {}", base.string()));
}

}  // namespace

LogTail::LogTail() : dir_(freshFolder()), file_(dir_ / "Log.txt") {
  gf_openLog(file_);
  take();  // the header line is no line's text
}

LogTail::~LogTail() {
  gf_closeLog();
  std::error_code ignored;
  std::filesystem::remove_all(dir_, ignored);
}

std::string LogTail::take() {
  gf_flushLog();
  std::ifstream in(file_, std::ios::binary);
  in.seekg(static_cast<std::streamoff>(offset_));
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  offset_ += text.size();
  if (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

}  // namespace orv::inspect
