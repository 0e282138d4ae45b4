// The traffic line decoder: each line of the input is one datagram of the Traffic Reader.
// Lines follow each other through one decoder, since a short line meets what the one before
// left in the field array. The user and the park airport are at Frankfurt, where the
// recorded traffic flies, so that lines pass the range test and reach every step.
#include <cstdint>
#include <vector>

#include "engine/engine_tick.h"
#include "engine/traffic_queue.h"
#include "feed/traffic_decoder.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "foundation/time_text.h"
#include "fuzz_support.h"
#include "refdata/code_tables.h"

using namespace orv;

namespace {

// What a message that reached the engine's queue must hold, whatever the line was.
void checkMessage(const TrafficMsg& m) {
  fuzz::check(m.hexid > 10000, "a queued hexid above 10000");
  fuzz::check(m.sample.lat >= -90 && m.sample.lat <= 90 && m.sample.lon >= -180 && m.sample.lon <= 180,
              "a queued position in range");
  fuzz::check(m.ident.reg.size() <= 12, "a queued registration of at most 12 characters");
  fuzz::check(!m.ident.cs.empty() || !m.ident.reg.empty(), "a queued callsign or registration");
  fuzz::check(m.ident.cs.find('@') == std::string::npos, "no '@' in a queued callsign");
  const std::string model = modelCode(m.ident.code.acType);
  fuzz::check(!model.empty() && model.size() <= 4, "a queued model of one to four characters");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool ready = [] {
    gf_setRange(40);
    AIRBORNE_ONLY.set(false);
    gv_tick = 100;
    gTrafficQueue.setEnabled(true);
    gCollectCallsigns = true;
    return true;
  }();
  (void)ready;

  TrafficDecoder decoder;
  decoder.setUserPosition(50.0379, 8.5622);
  decoder.setParkAirport(50.0333, 8.5706, 364.0);
  for (const std::vector<char>& datagram : fuzz::datagramsOf(fuzz::textOf(data, size))) {
    decoder.processLine(std::string_view(datagram.data(), datagram.size()));
    const std::int64_t clock = gv_feedTimestamp.load();
    fuzz::check(clock >= 0 && clock < 4102444800, "the feed's clock a time between 1970 and 2100");
    TrafficMsg taken[4];
    while (const std::size_t n = gTrafficQueue.take(4, taken))
      for (std::size_t i = 0; i < n; ++i) checkMessage(taken[i]);
  }
  {
    std::lock_guard lock(gLiveCallsignsMutex);
    gLiveCallsignsIncoming.clear();
  }
  gf_resetCodeTables();
  return 0;
}
