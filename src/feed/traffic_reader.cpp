#include "feed/traffic_reader.h"

#include "foundation/log.h"
#include "ui/window_state.h"

namespace orv {
namespace {

// The weather comes with the traffic: the Traffic Reader shows both.
void lf_showBothStatuses(int status) {
  gWindowState.trafficStatus.show(status);
  gWindowState.weatherStatus.show(status);
}

}  // namespace

void TrafficReader::processDatagram() { decoder_.processLine(line); }

void TrafficReader::stopped() {
  gWindowState.trafficStatus.show(kFeedStopped);
  gf_log("Traffic Reader has stopped");
}

void gf_startTrafficReader(std::uint16_t port, bool local) {
  gf_runReader(gTrafficReader, "Traffic Reader", port, local, lf_showBothStatuses);
}

}  // namespace orv
