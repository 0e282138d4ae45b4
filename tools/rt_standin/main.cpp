// rt_standin: RealTraffic's side of Orvane's feed, for running and testing without RealTraffic.
#include <csignal>
#include <iostream>
#include <string_view>
#include <vector>

#include "console.h"
#include "options.h"
#include "standin_run.h"

namespace {

std::atomic<bool> gv_stopRequested{false};

extern "C" void onSignal(int) { gv_stopRequested = true; }

}  // namespace

int main(int argc, char** argv) {
  using namespace orv::standin;
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  StandinOptions options;
  try {
    options = parseOptions(arguments);
  } catch (const OptionError& e) {
    std::cerr << "rt_standin: " << e.what() << "\n";
    return 2;
  }
  if (options.help) {
    std::cout << usageText();
    return 0;
  }
  std::signal(SIGINT, onSignal);
  std::signal(SIGTERM, onSignal);
  Console console(std::cout);
  try {
    return runStandin(options, console, gv_stopRequested);
  } catch (const std::exception& e) {
    std::cerr << "rt_standin: " << e.what() << "\n";
    return 2;
  }
}
