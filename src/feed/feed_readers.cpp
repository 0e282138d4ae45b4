#include "feed/feed_readers.h"

#include <thread>

#include "feed/feed_status.h"
#include "feed/live_callsigns.h"
#include "feed/traffic_decoder.h"
#include "foundation/time_text.h"

namespace orv {

void lf_startQnhReader(std::uint16_t port) { std::thread(gf_startQnhReader, port).detach(); }

void lf_startTrafficReader(bool local, std::uint16_t port) {
  std::thread(gf_startTrafficReader, port, local).detach();
}

void lf_stopReaders() {
  gQnhReader.stopSoon();
  gTrafficReader.stopSoon();
}

void lf_resetFeed() {
  gTrafficDecoder.qnh = kStandardQnh;
  gv_qnh = kStandardQnh;
  gv_feedTimestamp = 0;
  lf_clearIncomingCallsigns();
  // A static update cut short by the end of the run collects no more.
  gCollectCallsigns = false;
  for (UdpReader* reader : {static_cast<UdpReader*>(&gTrafficReader), static_cast<UdpReader*>(&gQnhReader)}) {
    reader->stop = false;
    reader->count = 0;
  }
  gv_readerCleanupDone = false;
  lf_resetFeedStatus();
  gQnhReader.lastQnh = kStandardQnh;
}

}  // namespace orv
