#pragma once
// The names by which one airline's paint is told among the titles of another: a regional
// company flies in the colours of the airline it flies for, and says so in its titles.
#include <string_view>

namespace orv {

// The name of an airline code as titles write it; "not found" for a code without one.
std::string_view gf_airlineNameInTitles(std::string_view code);

}  // namespace orv
