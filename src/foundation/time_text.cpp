#include "foundation/time_text.h"

#include <fmt/format.h>

#include <array>

namespace orv {

std::time_t gf_programTime() {
  const std::int64_t feed = gv_feedTimestamp.load();
  if (gv_rtProf.load() && feed != 0) return static_cast<std::time_t>(feed);
  return std::time(nullptr);
}

std::string gf_longTimeText(std::time_t t) {
  static constexpr std::array<const char*, 7> days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  static constexpr std::array<const char*, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::tm tm{};
#ifdef _WIN32
  const bool broken = gmtime_s(&tm, &t) == 0;
#else
  const bool broken = gmtime_r(&t, &tm) != nullptr;
#endif
  if (!broken || tm.tm_wday < 0 || tm.tm_wday > 6) return "Invalid time";
  const char* month = tm.tm_mon >= 0 && tm.tm_mon < 12 ? months[static_cast<std::size_t>(tm.tm_mon)] : "???";
  return fmt::format("{:3} {:3} {:02} {:02}:{:02}:{:02} {:4}", days[static_cast<std::size_t>(tm.tm_wday)], month,
                     tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec, tm.tm_year + 1900);
}

std::string gf_shortTimeText(std::time_t t) {
  const std::string long_ = gf_longTimeText(t);
  if (long_.size() < 19) return long_;
  return long_.substr(11, 8);  // after "Www Mmm dd "
}

std::string gf_timeOfDay() { return gf_shortTimeText(gf_programTime()); }

}  // namespace orv
