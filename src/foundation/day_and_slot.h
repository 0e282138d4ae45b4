#pragma once
// The present moment of the week: UTC weekday 1 (Monday) to 7 (Sunday) in the low 32 bits,
// half hour of the day 0 to 47 in the high 32 bits.
#include <atomic>
#include <cstdint>
#include <ctime>

namespace orv {

using WeekSlot = std::uint64_t;

inline constexpr WeekSlot gf_weekSlot(std::uint32_t weekday, std::uint32_t halfHour) {
  return (static_cast<WeekSlot>(halfHour) << 32) | weekday;
}
inline constexpr std::uint32_t gf_weekdayOf(WeekSlot s) { return static_cast<std::uint32_t>(s & 0xffffffffu); }
inline constexpr std::uint32_t gf_halfHourOf(WeekSlot s) { return static_cast<std::uint32_t>(s >> 32); }

inline std::atomic<WeekSlot> gv_dayAndSlot{0};

// The slot of a time: a half hour counts from its 29:30, so 10:29:30 is already 10:30.
WeekSlot gf_dayAndSlotOf(std::time_t t);
// From the feed's last time stamp while RealTraffic sets the clock, else the system clock.
void gf_refreshDayAndSlot();

}  // namespace orv
