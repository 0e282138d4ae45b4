#include "simlink/standin_launch.h"

#include "foundation/log.h"

#if !defined(ORV_REAL_SIMCONNECT)
#include "platform/simconnect/standin_control.h"
#endif

namespace orv {

std::string lf_scenarioOption(const std::vector<std::string>& args) {
  for (std::size_t i = 0; i + 1 < args.size(); ++i)
    if (args[i] == "--scenario") return args[i + 1];
  return {};
}

#if defined(ORV_REAL_SIMCONNECT)

void gf_startStandinSimulator(const std::vector<std::string>&) {}
void gf_stopStandinSimulator() {}

#else

void gf_startStandinSimulator(const std::vector<std::string>& args) {
  const std::string file = lf_scenarioOption(args);
  if (standin::isRunning()) standin::stop();
  if (file.empty())
    standin::loadScenarioText(kDefaultStandinScenario, "default_eddf.json");
  else
    standin::loadScenarioFile(file);
  standin::start(standin::Clock::RealTime);
  gf_log("Stand-in simulator started in real time with {}", file.empty() ? "default_eddf.json" : file);
}

void gf_stopStandinSimulator() {
  if (standin::isRunning()) standin::stop();
}

#endif

}  // namespace orv
