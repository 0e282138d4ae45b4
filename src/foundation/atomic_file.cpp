#include "foundation/atomic_file.h"

#include <fmt/format.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace orv {

bool gf_writeFileAtomically(const fs::path& file, const std::function<void(std::ostream&)>& writer,
                            std::string* error) {
  static std::atomic<unsigned> counter{0};
  const fs::path temp = file.parent_path() / fmt::format(".{}.{}.tmp", file.filename().string(), counter++);
  auto fail = [&](const std::string& why) {
    std::error_code ignored;
    fs::remove(temp, ignored);
    if (error) *error = why;
    return false;
  };
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out) return fail(fmt::format("cannot create {}: {}", temp.string(), std::strerror(errno)));
    try {
      writer(out);
    } catch (const std::exception& e) {
      return fail(e.what());
    }
    out.flush();
    if (!out) return fail(fmt::format("writing {} failed: {}", temp.string(), std::strerror(errno)));
    out.close();
    if (!out) return fail(fmt::format("closing {} failed: {}", temp.string(), std::strerror(errno)));
  }
  std::error_code ec;
  fs::rename(temp, file, ec);
  if (ec) return fail(fmt::format("replacing {} failed: {}", file.string(), ec.message()));
  return true;
}

}  // namespace orv
