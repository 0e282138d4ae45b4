#pragma once
// The choice of one title from a list: at random, keeping away from special liveries, and by
// the country of registration.
#include <string_view>

#include "liveries/livery_indexes.h"
#include "liveries/livery_query.h"

namespace orv {

// Sets ac.title to a random title of a non-empty list, trying five times to miss the special
// ones, then choosing among the others; a list of special titles alone still gives one.
// An empty list changes nothing.
void gf_pickTitle(LiveryQuery& ac, const TitleList& titles);
// The start of reg up to and including the first "-"; the first character alone when there is
// no "-" or it comes first; empty for an empty reg.
std::string_view gf_regPrefix(std::string_view reg);
// The titles whose own in-line regcode begins with prefix, in list order.
TitleList gf_titlesWithPrefix(const TitleList& titles, std::string_view prefix);
// A title registered in the aircraft's country, or else in a country of its prefix group.
// True when a title is set.
bool gf_pickByPrefix(LiveryQuery& ac, const TitleList& titles);

}  // namespace orv
