// Stand-ins until their subsystem lands: RealTraffic link and the feed readers.
// Each does nothing and returns what lets the run go on.
#include "app/pending_stages.h"

namespace orv {

void lf_openRtServer(const char*) {}
void waitForClient() {}
void lf_sendPosition() {}
void lf_sendSimTime() {}
void lf_closeRt() {}
void lf_startQnhReader() {}
void lf_startTrafficReader(bool) {}
void lf_stopReaders() {}
void lf_feedStatus() {}
bool lf_feedDataLost() { return false; }
void lf_clearFeedPendingData() {}

}  // namespace orv
