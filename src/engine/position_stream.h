#pragma once
// The stream of samples that drives a live aircraft 30 seconds behind the real one: how a
// sample enters it, how its due times are kept, and how it is extended when the reports end.
#include <cstdint>

#include "engine/live_aircraft.h"

namespace orv {

// Samples beyond this many in the stream: the aircraft has fallen too far behind.
inline constexpr std::size_t kMaxStreamSamples = 200;
// Within this of the feed range's edge an aircraft in the air is not extended, nor spawned.
inline constexpr double kRangeMarginNm = 0.5;

// The due limits: how far a planned due time may slide against the sample's own.
// Widening lets the timing follow a take-off or an approach; relaxing brings it back.
void lf_widenDueLimits(LiveAc& ac);
void lf_relaxDueLimits(LiveAc& ac);

// Appends a new sample of a known aircraft (its identity already taken in).
void decodeExisting(LiveAc& ac, Sample s);
// Decides whether a sample of a standing or slow aircraft is taken; may turn it into a copy
// of the last sample. False: drop it.
bool lf_checkStanding(LiveAc& ac, Sample& s);

// When stream[0] is due: makes sure a next sample exists (extending or removing the aircraft)
// and plans the leg to it.
void nextPosMain(LiveAc& ac);
// Plans the leg from the present position to stream[1], then passes stream[0].
void lf_nextPos(LiveAc& ac);
// Position steps per tick from the present position to stream[1], over lf_legTicks.
void lf_positionSteps(LiveAc& ac);
// Ticks to the next sample, at least 25: a late leg is flown at that minimum.
std::int32_t lf_legTicks(const LiveAc& ac);
// The speed of the leg to stream[1] in knots.
double lf_meanSpeed(const LiveAc& ac);
// Moves stream[1]'s due time to a leg of `ticks`, within the due limits.
void lf_clampDue(LiveAc& ac, std::int32_t ticks);
void lf_airLegTiming(LiveAc& ac);
// Fewer than two samples are left; false when the aircraft is to go.
bool lf_extendStream(LiveAc& ac);
// Appends one straight leg beyond the last report; `n` legs are left after it.
void lf_extendOnce(LiveAc& ac, std::int32_t n);

}  // namespace orv
