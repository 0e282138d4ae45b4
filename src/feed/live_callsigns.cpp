#include "feed/live_callsigns.h"

#include <mutex>

#include "feed/traffic_decoder.h"

namespace orv {

void lf_clearIncomingCallsigns() {
  std::lock_guard lock(gLiveCallsignsMutex);
  gLiveCallsignsIncoming.clear();
}

void lf_clearFeedPendingData() {
  lf_clearIncomingCallsigns();
  gCollectCallsigns = true;
}

}  // namespace orv
