#include "simlink/standin_launch.h"

#include <fmt/format.h>

#include <charconv>
#include <stdexcept>

#include "foundation/log.h"

#if !defined(ORV_REAL_SIMCONNECT)
#include "platform/simconnect/simconnect_server.h"
#include "platform/simconnect/standin_control.h"
#endif

namespace orv {

std::string lf_scenarioOption(const std::vector<std::string>& args) {
  for (std::size_t i = 0; i + 1 < args.size(); ++i)
    if (args[i] == "--scenario") return args[i + 1];
  return {};
}

double lf_timeScaleOption(const std::vector<std::string>& args) {
  double scale = 1.0;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] != "--time-scale") continue;
    const std::string text = i + 1 < args.size() ? args[i + 1] : std::string();
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size() || !(value > 0.0 && value <= 100.0))
      throw std::runtime_error(fmt::format("--time-scale: '{}' is not a number above 0 and at most 100", text));
    scale = value;
  }
  return scale;
}

#if defined(ORV_REAL_SIMCONNECT)

void gf_startStandinSimulator(const std::vector<std::string>&) {}
void gf_stopStandinSimulator() {}

#else

void gf_startStandinSimulator(const std::vector<std::string>& args) {
  const std::string file = lf_scenarioOption(args);
  // Where the simulator's own library exists it serves; the stand-in only on request.
  const simconnect::ServerChoice choice = simconnect::chooseServer(!file.empty());
  for (const std::string& refused : choice.refused) gf_logError("SimConnect: {}", refused);
  if (choice.server == simconnect::Server::Library) {
    gf_log("SimConnect served by {}", choice.library.string());
    return;
  }
  if (choice.server == simconnect::Server::None) {
    std::string looked;
    for (const auto& path : choice.looked) looked += (looked.empty() ? "" : ", ") + path.string();
    gf_logError("SimConnect.dll not found (looked for {}); without it only --scenario FILE starts the stand-in simulator",
                looked);
    if (standin::isRunning()) standin::stop();
    return;
  }
  gf_log("SimConnect served by the stand-in simulator");
  if (standin::isRunning()) standin::stop();
  if (file.empty())
    standin::loadScenarioText(kDefaultStandinScenario, "default_eddf.json");
  else
    standin::loadScenarioFile(file);
  const double scale = lf_timeScaleOption(args);
  standin::start(standin::Clock::RealTime, scale);
  if (scale == 1.0)
    gf_log("Stand-in simulator started in real time with {}", file.empty() ? "default_eddf.json" : file);
  else
    gf_log("Stand-in simulator started at {} times real time with {}", scale, file.empty() ? "default_eddf.json" : file);
}

void gf_stopStandinSimulator() {
  if (standin::isRunning()) standin::stop();
}

#endif

}  // namespace orv
