#include "app/process_entry.h"

#include <fmt/format.h>

#include <atomic>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <mutex>
#include <optional>
#include <thread>

#include "app/closing_down.h"
#include "app/command_line.h"
#include "app/layer_bindings.h"
#include "app/main_loop.h"
#include "app/process_state.h"
#include "app/start_up.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/program_info.h"
#include "foundation/run_flags.h"
#include "foundation/time_text.h"
#include "foundation/user_paths.h"
#include "platform/desktop/desktop.h"
#include "platform/window/headless_window.h"
#include "refdata/download_site.h"
#include "simlink/sim_client.h"
#include "simlink/standin_launch.h"
#include "ui/controls.h"
#include "ui/window_position.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

volatile std::sig_atomic_t gv_signalled = 0;
extern "C" void onSignal(int) { gv_signalled = 1; }

std::optional<int> secondsOption(const std::vector<std::string>& args) {
  for (std::size_t i = 0; i + 1 < args.size(); ++i)
    if (args[i] == "--seconds") return std::max(0, std::atoi(args[i + 1].c_str()));
  return std::nullopt;
}

// Presses the close button when the time of --seconds is up or a signal came: the run then
// ends on the same path as when the user closes the window.
class Closer {
 public:
  Closer(WindowLayer& window, std::optional<int> seconds)
      : thread_([this, &window, seconds] {
          const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds.value_or(0));
          std::unique_lock lock(mutex_);
          while (!done_) {
            if (gv_signalled || (seconds && std::chrono::steady_clock::now() >= deadline)) {
              window.post(WM_CLOSE);
              return;
            }
            cv_.wait_for(lock, std::chrono::milliseconds(100));
          }
        }) {}
  ~Closer() {
    {
      std::lock_guard lock(mutex_);
      done_ = true;
    }
    cv_.notify_all();
    thread_.join();
  }

 private:
  std::mutex mutex_;
  std::condition_variable cv_;
  bool done_ = false;
  std::thread thread_;
};

}  // namespace

int lf_runProcess(const fs::path& workingFolder, const std::vector<std::string>& args) {
  desktop::SingleInstance instance(gf_userFolder(), "$Orvane$");
  if (!instance.held()) return -1;

  std::error_code ec;
  fs::current_path(workingFolder, ec);
  if (ec) {
    std::fprintf(stderr, "Cannot enter the working folder %s: %s\n", workingFolder.string().c_str(), ec.message().c_str());
    return 1;
  }
  try {
    gf_openLog("Log.txt");
  } catch (const std::exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
  const bool production = lf_productionRequested(args);
  if (auto site = lf_downloadSiteRequested(args)) gf_setDownloadSite(std::move(*site));

  const fs::path userFolder = gf_userFolder();
  fs::create_directories(userFolder, ec);
  if (ec) {
    gf_log("Failed to create directory: {}", userFolder.string());
    gf_closeLog();
    return 0;
  }

  try {
    gv_timeScale = lf_timeScaleOption(args);
  } catch (const std::exception& e) {
    gf_logError(e.what());
    std::fprintf(stderr, "%s\n", e.what());
    gf_closeLog();
    return 1;
  }
  // Without the simulator's SDK, SimConnect is served by the stand-in simulator.
  if (!production) {
    try {
      gf_startStandinSimulator(args);
    } catch (const std::exception& e) {
      gf_logError(e.what());
      std::fprintf(stderr, "%s\n", e.what());
      gf_closeLog();
      return 1;
    }
  }

  lf_resetRunState();
  gv_restarting = false;
  gv_exitCode = 0;
  HeadlessWindow window;
  gf_setWindow(&window);
  // Before any thread that calls across the layers starts.
  lf_bindLayers();
  lf_readWindowPosition();
  lf_createControls();
  gv_production = production;
  window.post(WM_START_RUN);

  gv_signalled = 0;
  std::signal(SIGINT, onSignal);
  std::signal(SIGTERM, onSignal);
  std::thread startUp;
  int exitCode = 0;
  {
    Closer closer(window, secondsOption(args));
    for (;;) {
      const WindowMessage m = window.waitMessage();
      if (m.quit) {
        exitCode = m.exitCode;
        break;
      }
      if (m.id == WM_START_RUN) {
        // The earlier start-up thread has posted this message as its last act.
        if (startUp.joinable()) startUp.join();
        startUp = std::thread(lf_startUpOrvane);
      } else if (m.id == WM_CLOSE) {
        setMessage(fmt::format("Close window button clicked, closing {} ...", kProgramName));
        lf_closeAsUser();
      } else if (m.id == WM_END_PROGRAM) {
        lf_saveWindowPosition();
        gf_log(gf_longTimeText(std::time(nullptr)));
        window.postQuit(gv_exitCode);
      }
      // WM_PAINT_MESSAGE: nothing is drawn without a display.
    }
  }
  if (startUp.joinable()) startUp.join();
  lf_joinSimClient();
  gf_stopStandinSimulator();
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);

  const std::string error = gf_messageArea().errorText;
  gf_setWindow(nullptr);
  gf_closeLog();
  std::printf("Log.txt: %s\n", fs::absolute("Log.txt").string().c_str());
  // The error stays readable on the terminal; the exit code is the one the run handed to the
  // quit, as on the window.
  if (!error.empty()) std::fprintf(stderr, "Error: %s\n", error.c_str());
  return exitCode;
}

}  // namespace orv
