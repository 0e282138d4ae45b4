#include "app/headless_run.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

#include "app/working_folder.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/time_text.h"
#include "foundation/user_error.h"
#include "foundation/user_paths.h"
#include "foundation/version_upgrade.h"
#include "platform/window/headless_window.h"
#include "ui/controls.h"
#include "ui/window_position.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

int secondsOption(const std::vector<std::string>& args) {
  for (std::size_t i = 0; i + 1 < args.size(); ++i)
    if (args[i] == "--seconds") return std::max(0, std::atoi(args[i + 1].c_str()));
  return 3;
}

extern "C" void onSignal(int) { gv_userClosing = true; }

void runThread(int seconds) {
  try {
    if (!fs::is_directory("docs"))
      throw UserErrorException(user_error::kWrongFolder, user_error::kWrongFolderText, kProgramName, kProgramName);
    gf_readAndUpgradeParameters();
    gf_window().invalidate(Band::Status);
    gf_flushLog();
    lf_resetControls();
    lf_createFolders();
    setMessage(fmt::format("{} runs headless for {} seconds", kProgramName, seconds), true);
    for (int tenths = 1; tenths <= seconds * 10 && !gf_stopping(); ++tenths) {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      if (tenths % 10 == 0) gf_ageMessage();
    }
  } catch (const std::exception& e) {
    setError(e.what());
  }
  gf_flushLog();
  // The run's last act: the main thread ends the program.
  gf_window().post(WM_END_PROGRAM);
}

}  // namespace

int lf_runProcess(const fs::path& workingFolder, const std::vector<std::string>& args) {
  std::error_code ec;
  fs::current_path(workingFolder, ec);
  if (ec) {
    std::fprintf(stderr, "Cannot enter the working folder %s: %s\n", workingFolder.c_str(), ec.message().c_str());
    return 1;
  }
  try {
    gf_openLog("Log.txt");
  } catch (const std::exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
  std::signal(SIGINT, onSignal);
  std::signal(SIGTERM, onSignal);

  const fs::path userFolder = gf_userFolder();
  fs::create_directories(userFolder, ec);
  if (ec) {
    gf_log("Failed to create directory: {}", userFolder.string());
    return 0;
  }

  HeadlessWindow window;
  gf_setWindow(&window);
  lf_readWindowPosition();
  lf_createControls();
  window.post(WM_START_RUN);

  std::thread run;
  int exitCode = 0;
  for (;;) {
    const WindowMessage m = window.waitMessage();
    if (m.quit) {
      exitCode = m.exitCode;
      break;
    }
    if (m.id == WM_START_RUN) {
      if (run.joinable()) run.join();
      run = std::thread(runThread, secondsOption(args));
    } else if (m.id == WM_END_PROGRAM) {
      gf_log("{} {} ends", gf_timeOfDay(), kProgramName);
      window.postQuit(0);
    }
    // WM_PAINT_MESSAGE: nothing is drawn without a display.
  }
  if (run.joinable()) run.join();

  const std::string error = gf_messageArea().errorText;
  gf_setWindow(nullptr);
  gf_closeLog();
  std::printf("Log.txt: %s\n", fs::absolute("Log.txt").c_str());
  if (!error.empty()) {
    std::fprintf(stderr, "Error: %s\n", error.c_str());
    return 1;
  }
  return exitCode;
}

}  // namespace orv
