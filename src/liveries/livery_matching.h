#pragma once
// Livery matching: the ladder that finds a livery for an aircraft, its cache, and the
// reports on what found no match.

namespace orv {

// Forgets the aircraft that found no livery, so that they are matched again.
void lf_clearNoMatch();
// Writes the list of aircraft that found no livery.
void lf_writeNoMatchList();
// Writes the summary of how aircraft were matched, at the turn of the day and at a stop.
void gf_writeMatchingSummary();
// Empties the cache of matches already made.
void lf_clearLiveryCache();

}  // namespace orv
