// save_kill: the kill test of the program's saved files. A child process saves parameters.xml
// (single parameters and the whole file) and output/info/ObjectIdList.txt in a loop and is
// killed with SIGKILL at a random moment; then each file must load whole, holding the value of
// the last finished save or of the one under way. A new child then starts from what it finds.
//
//   save_kill [--kills N] [--max-delay-ms M] [--seed S] [--keep]
//
// Exits 0 when every file survived every kill, 1 otherwise (the bad files are kept).
#include <fmt/format.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <random>
#include <string>
#include <string_view>
#include <thread>

#include "engine/object_id_list.h"
#include "file_checks.h"
#include "foundation/user_paths.h"
#include "saver.h"

namespace fs = std::filesystem;
using namespace orv::savekill;

namespace {

struct Options {
  int kills = 1000;
  int maxDelayMs = 20;
  unsigned seed = std::random_device{}();
  bool keep = false;
};

Options parseOptions(int argc, char** argv) {
  Options o;
  for (int i = 1; i < argc; ++i) {
    const std::string_view a = argv[i];
    const bool hasValue = i + 1 < argc;
    if (a == "--kills" && hasValue) {
      o.kills = std::atoi(argv[++i]);
    } else if (a == "--max-delay-ms" && hasValue) {
      o.maxDelayMs = std::atoi(argv[++i]);
    } else if (a == "--seed" && hasValue) {
      o.seed = static_cast<unsigned>(std::strtoul(argv[++i], nullptr, 10));
    } else if (a == "--keep") {
      o.keep = true;
    } else {
      std::fprintf(stderr, "usage: save_kill [--kills N] [--max-delay-ms M] [--seed S] [--keep]\n");
      std::exit(2);
    }
  }
  if (o.kills < 1 || o.maxDelayMs < 1) {
    std::fprintf(stderr, "save_kill: --kills and --max-delay-ms must be at least 1\n");
    std::exit(2);
  }
  return o;
}

fs::path makeFolder() {
  std::string pattern = (fs::temp_directory_path() / "orvane-save-kill-XXXXXX").string();
  if (!mkdtemp(pattern.data())) {
    std::perror("save_kill: mkdtemp");
    std::exit(2);
  }
  return pattern;
}

// Waits for the child to have read its parameters; false when it died or took too long.
bool waitUntilReady(const SharedProgress& progress, pid_t child) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!progress.ready.load()) {
    int status = 0;
    if (waitpid(child, &status, WNOHANG) == child) return false;
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = parseOptions(argc, argv);
  const fs::path folder = makeFolder();
  setenv("ORVANE_APPDATA", (folder / "appdata").c_str(), 1);
  fs::create_directories(folder / "work" / orv::kObjectIdListPath.parent_path());
  fs::current_path(folder / "work");
  const fs::path parameters = orv::gf_parametersPath();
  fs::create_directories(parameters.parent_path());

  void* shared = mmap(nullptr, sizeof(SharedProgress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) {
    std::perror("save_kill: mmap");
    return 2;
  }
  auto* progress = new (shared) SharedProgress;
  std::mt19937 rng(options.seed);
  std::uniform_int_distribution<int> delayUs(0, options.maxDelayMs * 1000);

  int survived = 0, failed = 0, insideSave = 0, newParameters = 0, newObjectLists = 0;
  std::int64_t saves = 0;
  for (int kill = 1; kill <= options.kills; ++kill) {
    progress->ready = false;
    const std::int64_t startedBefore = progress->savesStarted.load();
    const pid_t child = fork();
    if (child < 0) {
      std::perror("save_kill: fork");
      return 2;
    }
    if (child == 0) runSaver(*progress);
    if (!waitUntilReady(*progress, child)) {
      std::fprintf(stderr, "save_kill: kill %d: the saver did not start\n", kill);
      ::kill(child, SIGKILL);
      waitpid(child, nullptr, 0);
      ++failed;
      break;
    }
    std::this_thread::sleep_for(std::chrono::microseconds(delayUs(rng)));
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    saves += progress->savesStarted.load() - startedBefore;
    if (progress->parameters.inProgress != progress->parameters.completed ||
        progress->objectList.inProgress != progress->objectList.completed)
      ++insideSave;

    Found parameterValue, objectList;
    const std::string parameterFault = checkParameters(parameters, progress->parameters, parameterValue);
    const std::string objectFault = checkObjectList(orv::kObjectIdListPath, progress->objectList, objectList);
    if (parameterFault.empty() && objectFault.empty()) {
      ++survived;
      newParameters += parameterValue.isNew;
      newObjectLists += objectList.isNew;
      // A kill between a finished save and its note leaves the note behind the file: the next
      // child starts from what the files hold.
      progress->parameters.completed = progress->parameters.inProgress = parameterValue.value;
      progress->objectList.completed = progress->objectList.inProgress = objectList.value;
      continue;
    }
    ++failed;
    if (!parameterFault.empty()) std::fprintf(stderr, "kill %d: parameters.xml %s\n", kill, parameterFault.c_str());
    if (!objectFault.empty()) std::fprintf(stderr, "kill %d: ObjectIdList.txt %s\n", kill, objectFault.c_str());
    // Kept for a look; the next child starts from whatever the program makes of it.
    std::error_code ec;
    fs::copy_file(parameters, folder / fmt::format("kill{}-parameters.xml", kill), ec);
    fs::copy_file(orv::kObjectIdListPath, folder / fmt::format("kill{}-ObjectIdList.txt", kill), ec);
  }

  const int leftovers =
      countTemporaryFiles(parameters.parent_path()) + countTemporaryFiles(orv::kObjectIdListPath.parent_path());
  std::printf(
      "save_kill: %d of %d kills survived (seed %u)%s\n"
      "  %lld saves begun, %d kills landed inside a save; the new value was found %d times in parameters.xml and "
      "%d times in ObjectIdList.txt, the old one otherwise\n"
      "  %d temporary files of cut saves left behind\n",
      survived, options.kills, options.seed,
      failed == 0 ? ": parameters.xml and ObjectIdList.txt read back whole after every kill" : "",
      static_cast<long long>(saves), insideSave, newParameters, newObjectLists, leftovers);
  fs::current_path(folder.parent_path());
  if (failed == 0 && !options.keep) {
    std::error_code ec;
    fs::remove_all(folder, ec);
  } else {
    std::printf("  files kept in %s\n", folder.c_str());
  }
  return failed == 0 ? 0 : 1;
}
