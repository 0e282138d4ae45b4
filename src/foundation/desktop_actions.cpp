#include "foundation/desktop_actions.h"

#include <fstream>
#include <system_error>

#include "foundation/log.h"
#include "foundation/user_paths.h"
#include "platform/desktop/desktop.h"

namespace fs = std::filesystem;

namespace orv {

namespace {
bool isProtected(const fs::path& folder) {
  const auto& text = folder.native();
  for (const fs::path& root : desktop::protectedFolders()) {
    if (!root.empty() && text.starts_with(root.native())) return true;
  }
  return false;
}
}  // namespace

bool gf_openInExplorer(const fs::path& path) {
  std::error_code ec;
  if (!fs::exists(path, ec)) return false;
  return desktop::openFolder(path.parent_path());
}

bool gf_messageBox(std::string_view text, std::string_view title) {
  if (desktop::messageBox(text, title)) return true;
  gf_log("message box '{}': {}", title, text);
  return false;
}

void gf_openParametersFolder() {
  if (!gf_openInExplorer(gf_parametersPath())) gf_messageBox("Could not open folder with parameters.xml");
}

void gf_openManualFolder() {
  std::error_code ec;
  const fs::path manual = fs::current_path(ec) / "docs" / "Manual.pdf";
  if (ec || !gf_openInExplorer(manual)) gf_messageBox("Could not open local folder with Manual");
}

bool gf_folderWritable(const fs::path& folder) {
  const fs::path probe = folder / ".write_test.tmp";
  bool written = false;
  {
    std::ofstream out(probe, std::ios::binary | std::ios::trunc);
    if (!out.is_open()) return false;
    out.put('x');
    out.flush();
    written = out.good();
  }
  std::error_code ec;
  fs::remove(probe, ec);
  return written;
}

std::string gf_newVersionText(const fs::path& installFolder) {
  // Only a protected folder can refuse the installer; elsewhere the probe file is not worth its trace.
  if (isProtected(installFolder) && !gf_folderWritable(installFolder) && !desktop::processElevated())
    return "A new version is available. Run the installer as Administrator";
  return "A new version is available.\nThe installer can be executed normally (no Administrator rights required).";
}

}  // namespace orv
