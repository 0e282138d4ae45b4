#include "foundation/folder_utils.h"

#include <system_error>

#include "foundation/log.h"

namespace fs = std::filesystem;

namespace orv {

namespace {
bool removeLogged(const fs::path& entry) {
  std::error_code ec;
  fs::remove(entry, ec);
  if (ec) gf_logError("Failed to remove {} ({})", entry.string(), ec.message());
  return !ec;
}
}  // namespace

std::size_t gf_countEntries(const fs::path& folder) {
  std::error_code ec;
  std::size_t count = 0;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) ++count;
  return count;
}

void gf_removeFilesIn(const fs::path& folder) {
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code typeError;
    if (it->is_regular_file(typeError)) removeLogged(it->path());
  }
}

void gf_removeEntriesBelow(const fs::path& folder) {
  std::error_code ec;
  if (!fs::is_directory(folder, ec)) return;
  fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied, ec);
  for (const fs::recursive_directory_iterator end; !ec && it != end;) {
    const fs::path entry = it->path();
    // A folder that went at its turn was empty: there is nothing to descend into.
    if (removeLogged(entry)) it.disable_recursion_pending();
    it.increment(ec);
    if (ec) gf_logError("Failed to remove {} ({})", entry.string(), ec.message());
  }
}

}  // namespace orv
