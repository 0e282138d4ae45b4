#include "app/working_folder.h"

#include <cstdlib>

#include "platform/desktop/desktop.h"

namespace orv {

std::filesystem::path lf_workingFolder(const std::vector<std::string>& args) {
  for (std::size_t i = 0; i + 1 < args.size(); ++i)
    if (args[i] == "--workdir") return args[i + 1];
  if (const char* home = std::getenv("ORVANE_HOME"); home && *home) return home;
  const std::filesystem::path exe = desktop::executablePath();
  return exe.empty() ? std::filesystem::current_path() : exe.parent_path();
}

}  // namespace orv

namespace orv {

void lf_createFolders() {
  namespace fs = std::filesystem;
  for (const char* folder : {"output", "output/info", "output/errors", "airports", "airports/learned",
                             "airports/learned/stock", "airports/learned/simaddon", "airports/learned/thirdparty",
                             "airports/my_simaddon", "airports/my_thirdparty", "input/my_regcodes"}) {
    // Something that is there but is no folder is replaced, like a missing one.
    if (fs::exists(folder) && !fs::is_directory(folder)) fs::remove(folder);
    fs::create_directories(folder);
  }
  if (fs::exists("output/info/ObjectIdList.txt")) fs::remove("output/info/ObjectIdList.txt");
}

}  // namespace orv
