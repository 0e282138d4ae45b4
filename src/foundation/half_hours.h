#pragma once
// Sets of half hours of the UTC day: bit n stands for the half hour that starts
// n x 30 minutes after 00:00 UTC. Users write them as "a:b" ranges or "a,b,c" lists.
#include <bitset>
#include <optional>
#include <string>
#include <string_view>

namespace orv {

inline constexpr std::size_t kHalfHoursPerDay = 48;
using HalfHours = std::bitset<kHalfHoursPerDay>;

// "" gives the empty set, "a:b" the range a..b, "a" or "a,b,c" those half hours; numbers are
// 0..47 with white space around them ignored. Bad input is logged and gives less: a bad range
// gives nothing, a bad list item is passed over.
HalfHours gf_hours2bitset(std::string_view text);

// "a:b" (or "a") when the set is one unbroken run; nothing for the empty set or broken runs.
std::optional<std::string> gf_bitset2hours(const HalfHours& hours);

// The set half hours in rising order, joined by commas.
std::string gf_bitset2list(const HalfHours& hours);

}  // namespace orv
