#pragma once
// The two reader threads of a run: started detached by the run, stopped by closing down, and
// the feed's state set back whenever RealTraffic (re)connects.
#include <cstdint>

#include "feed/qnh_reader.h"
#include "feed/traffic_reader.h"

namespace orv {

// The ports the run reads; a test of the whole run may point them elsewhere (0: any free port).
inline std::uint16_t gv_trafficPort = kTrafficPort;
inline std::uint16_t gv_qnhPort = kQnhPort;

void lf_startQnhReader(std::uint16_t port);
void lf_startTrafficReader(bool local, std::uint16_t port);
// Sets both stop flags and wakes the readers; they end within moments.
void lf_stopReaders();
// QNH 1013 everywhere, no feed time, no collected callsigns, the readers' stop flags and
// counts 0 and both taken as flowing.
void lf_resetFeed();

}  // namespace orv
