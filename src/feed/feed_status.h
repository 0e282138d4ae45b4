#pragma once
// Whether data flow on the two readers, as the window shows it under "Traffic" and "Weather":
// 1 data flows, 2 no data since the last look, 3 stopped.
namespace orv {

// Compares each reader's count with the last look; only while the window's feed mark is set.
void lf_feedStatus();
// Either status shows no data since the last look.
bool lf_feedDataLost();
// The next look starts afresh: both taken as flowing, no counts seen.
void lf_resetFeedStatus();

}  // namespace orv
