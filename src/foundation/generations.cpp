#include "foundation/generations.h"

#include <system_error>

#include "foundation/log.h"

namespace fs = std::filesystem;

namespace orv {

namespace {
bool hasDot(const fs::path& file) { return file.filename().string().find('.') != std::string::npos; }

bool existsLogged(const fs::path& p) {
  std::error_code ec;
  const bool found = fs::exists(p, ec);
  if (ec) gf_logError("exists({}): {}", p.string(), ec.message());
  return found;
}

void copyLogged(const fs::path& from, const fs::path& to) {
  if (!existsLogged(from)) return;
  std::error_code ec;
  // Removed first rather than overwritten: libstdc++ on Windows refuses to overwrite a file.
  fs::remove(to, ec);
  if (!ec) fs::copy_file(from, to, ec);
  if (ec) gf_logError("copy {} -> {} failed: {}", from.string(), to.string(), ec.message());
}
}  // namespace

fs::path gf_generationPath(const fs::path& file, std::string_view suffix) {
  const std::string name = file.filename().string();
  const auto dot = name.rfind('.');
  std::string generation = dot == std::string::npos
                               ? name + std::string(suffix)
                               : name.substr(0, dot) + std::string(suffix) + name.substr(dot);
  return file.parent_path() / generation;
}

void gf_save1GenerationOf(const fs::path& file) {
  if (!hasDot(file)) {
    gf_logError("gf_save1GenerationOf: no dot in filename: {}", file.string());
    return;
  }
  copyLogged(file, gf_generationPath(file, "0"));
}

void gf_saveUpto3GenerationsOf(const fs::path& file) {
  if (!hasDot(file)) {
    gf_logError("gf_saveUpto3GenerationsOf: no dot in filename: {}", file.string());
    return;
  }
  copyLogged(gf_generationPath(file, "00"), gf_generationPath(file, "000"));
  copyLogged(gf_generationPath(file, "0"), gf_generationPath(file, "00"));
  copyLogged(file, gf_generationPath(file, "0"));
}

}  // namespace orv
