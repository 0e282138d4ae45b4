#pragma once
// The callsigns that the decoding collects for static parking, which drops the static twins
// of aircraft that fly.
namespace orv {

// The incoming set emptied, without a change of collecting.
void lf_clearIncomingCallsigns();
// An update of static parking begins: the set starts empty and the decoding fills it.
void lf_clearFeedPendingData();

}  // namespace orv
