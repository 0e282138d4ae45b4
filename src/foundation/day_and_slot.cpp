#include "foundation/day_and_slot.h"

#include "foundation/time_text.h"

namespace orv {

WeekSlot gf_dayAndSlotOf(std::time_t t) {
  std::tm tm{};
  if (!gmtime_r(&t, &tm)) return 0;
  const auto weekday = static_cast<std::uint32_t>(tm.tm_wday == 0 ? 7 : tm.tm_wday);
  const bool secondHalf = tm.tm_min > 29 || (tm.tm_min == 29 && tm.tm_sec >= 30);
  const auto slot = static_cast<std::uint32_t>((tm.tm_hour * 2 + (secondHalf ? 1 : 0)) % 48);
  return gf_weekSlot(weekday, slot);
}

void gf_refreshDayAndSlot() {
  const std::int64_t feed = gv_feedTimestamp.load();
  const std::time_t t = gv_rtProf.load() && feed != 0 ? static_cast<std::time_t>(feed) : std::time(nullptr);
  gv_dayAndSlot = gf_dayAndSlotOf(t);
}

}  // namespace orv
