#pragma once
// What the spawning of live aircraft remembers around the matching: the title each aircraft
// got, so that it keeps its paint when it comes back within the day, and the aircraft that
// found none, so that they are not offered to the ladder again. Both on the engine's thread.
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "refdata/ac_code.h"

namespace orv {

// hexid to title; cleared at the turn of the day and at the stop of a run.
inline std::unordered_map<std::uint32_t, std::string_view> gLiveryCache;
// The texts (gf_noMatchText) of aircraft without a livery.
inline std::set<std::string, std::less<>> gNoMatch;

// The title remembered for an aircraft. One that the simulator has since refused is forgotten
// and counts as not found: empty.
std::string_view gf_rememberedTitle(std::uint32_t hexid);
// How an aircraft stands in gNoMatch: the text of its code, a separator, its registration.
std::string gf_noMatchText(const AcCode& code, std::string_view reg);

// Every 1200 seconds of a run and at its stop: "No match found for:" and one line per entry.
// Nothing when the list is empty.
void lf_writeNoMatchList();
// The user asked to match again: every aircraft may try the ladder anew.
void lf_clearNoMatch();
void lf_clearLiveryCache();

}  // namespace orv
