#pragma once
// The registrations that the catalogue itself names (attribute `r`): each binds a regcode to a
// title, the first claim wins, and clashes are reported in output/errors/InlineRegcodes.txt.
namespace orv {

// Fills regcodeToTitle and titleToRegcode from liveriesScannedList; liveriesByAirline must stand.
void gf_processInlineRegcodes();

}  // namespace orv
