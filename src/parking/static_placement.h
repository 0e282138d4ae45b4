#pragma once
// The placement of static aircraft: one at a time from the list that an adjustment of parking
// leaves, at the pace of the engine step, so that live aircraft go first.

namespace orv {

// Takes the next static aircraft from the list and prepares its record for creation.
void lf_placeNextStatic();

}  // namespace orv
