#include "feed/feed_status.h"

#include <cstdint>

#include "feed/qnh_reader.h"
#include "feed/traffic_reader.h"
#include "foundation/status_values.h"

namespace orv {
namespace {

// Run thread only.
struct ReaderLook {
  std::int32_t lastCount = 0;
  bool flowing = true;
};
ReaderLook gTrafficLook;
ReaderLook gQnhLook;

template <class Status>
void lf_look(const UdpReader& reader, ReaderLook& look, Status& status) {
  const std::int32_t n = reader.count.load(std::memory_order_relaxed);
  if (n == look.lastCount) {
    status.show(kFeedQuiet);
    look.flowing = false;
    return;
  }
  look.lastCount = n;
  if (!look.flowing) {
    look.flowing = true;
    status.show(kFeedFlowing);
  }
}

}  // namespace

void lf_feedStatus() {
  if (!gFeedStatus.rtConnected.load()) return;
  lf_look(gTrafficReader, gTrafficLook, gFeedStatus.traffic);
  lf_look(gQnhReader, gQnhLook, gFeedStatus.weather);
}

bool lf_feedDataLost() {
  return gFeedStatus.traffic.load() == kFeedQuiet || gFeedStatus.weather.load() == kFeedQuiet;
}

void lf_resetFeedStatus() {
  gTrafficLook = ReaderLook{};
  gQnhLook = ReaderLook{};
}

}  // namespace orv
