#include "feed/traffic_reader.h"

#include "foundation/log.h"
#include "foundation/status_values.h"

namespace orv {
namespace {

// The weather comes with the traffic: the Traffic Reader shows both.
void lf_showBothStatuses(int status) {
  gFeedStatus.traffic.show(status);
  gFeedStatus.weather.show(status);
}

}  // namespace

void TrafficReader::processDatagram() { decoder_.processLine(line); }

void TrafficReader::stopped() {
  gFeedStatus.traffic.show(kFeedStopped);
  gf_log("Traffic Reader has stopped");
}

void gf_startTrafficReader(std::uint16_t port, bool local) {
  gf_runReader(gTrafficReader, "Traffic Reader", port, local, lf_showBothStatuses);
}

}  // namespace orv
